// What became of one file of a run, for the list at the end and for the report.
#pragma once

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
    int status = 0;
    bool died = false;
    bool run = false;  // not when an earlier one stopped the run
    int held = 0;
    int failed = 0;
    double seconds = 0;  // of real time
    std::string said = {};
    std::vector<RecordedFailure> failures = {};
};

// "12 held, 1 failed", "cannot be run", …
std::string summary(const Outcome& outcome);

}  // namespace simulator::scenario
