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
};

// One file in this process. What is malformed is told to `errors`, everything else to `output`.
int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors);

// Each file in a process of its own, one after the other: `program run FILE …`. The worst of the
// exit statuses; a process that a signal ended counts as failed.
int runFilesApart(const std::vector<std::string>& files, const RunOptions& options,
                  const std::filesystem::path& program);

}  // namespace simulator::scenario
