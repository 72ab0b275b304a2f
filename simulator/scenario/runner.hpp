// Runs scenario files and gives the exit status: 0 when every expectation held, 1 when one failed,
// 2 when a file could not be read or parsed.
//
// A phone runs in a process of its own, so that one that dies is told of by one that lives, and its
// folder goes with it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "simulator/scenario/json_text.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

using PhoneMaker = std::function<std::unique_ptr<Phone>(const PhoneOptions&)>;

struct Failure;

using Settings = std::vector<std::pair<std::string, JsonPointer>>;

struct RunOptions {
    std::filesystem::path pictures;  // beside the scenario's file when empty
    std::filesystem::path root;      // see PhoneOptions; of several files, each has a folder in it
    bool real = false;               // see PhoneOptions; for every file
    // What holds for every file that does not say otherwise.
    std::string device;
    std::string system;
    Settings settings;

    // Each file that does not say its system is run on a real phone of each of these.
    std::vector<std::string> matrix;

    unsigned jobs = 1;  // files at once
    bool stopAtFirst = false;
    std::filesystem::path report;  // a folder for a page on what failed; none when empty
};

// One file in this process. What is malformed is told to `errors`, everything else to `output`. `record`
// is told where the phone was at each failure; it may be empty.
using FailureHearer = std::function<void(Phone&, const Failure&)>;
int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors, const FailureHearer& record = {});

// Each file on a phone in a process of its own. Of several, what each said is told in their order,
// then what failed and the total. The worst of the exit statuses; a phone that died has failed.
int runFiles(const std::vector<std::string>& files, const RunOptions& options,
             const PhoneMaker& makePhone, std::ostream& output);

}  // namespace simulator::scenario
