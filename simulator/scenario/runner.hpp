// Runs scenario files and gives the exit status: 0 when every expectation held, 1 when one failed,
// 2 when a file could not be read or parsed.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

using PhoneMaker = std::function<std::unique_ptr<Phone>(const PhoneOptions&)>;

struct RunOptions {
    std::filesystem::path pictures;  // beside the scenario's file when empty
    std::filesystem::path root;      // see PhoneOptions
    bool real = false;               // likewise, for every file
    unsigned jobs = 1;               // files at once
};

// One file in this process. What is malformed is told to `errors`, everything else to `output`.
int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors);

// Each file in a process of its own, under a root a folder named after it. What each said is told in their
// order, then which failed. The worst of the exit statuses; a process that a signal ended has failed.
int runFiles(const std::vector<std::string>& files, const RunOptions& options,
             const PhoneMaker& makePhone, std::ostream& output);

}  // namespace simulator::scenario
