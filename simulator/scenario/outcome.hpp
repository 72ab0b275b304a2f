// What became of one file of a run, for the list at the end and for the report.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace simulator::scenario {

struct RecordedFailure {
    int line = 0;  // 0 when it belongs to no line
    std::string statement = {};
    std::string expected = {};
    std::string got = {};
    std::string message = {};
    std::string picture = {};  // files in the report's folder; empty for none
    std::string film = {};
    std::string tree = {};
    std::vector<std::string> journal = {};
};

struct Outcome {
    std::string file = {};
    std::string system = {};  // of a matrix
    int status = 0;
    bool died = false;
    bool run = false;  // not when an earlier one stopped the run
    int held = 0;
    int failed = 0;
    double seconds = 0;  // of real time
    std::string said = {};
    std::vector<RecordedFailure> failures = {};
};

// "a.scenario", "a.scenario on 12.4"
std::string title(const Outcome& outcome);
// "12 held, 1 failed", "cannot be run", …
std::string summary(const Outcome& outcome);

// What failed, of a matrix on which systems, and how many files and expectations held and failed.
void tellTotal(const std::vector<Outcome>& outcomes, std::ostream& output);

}  // namespace simulator::scenario
