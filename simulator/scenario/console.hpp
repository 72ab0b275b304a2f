// The console: the statements of a scenario read and carried out one at a time.
#pragma once

#include <filesystem>
#include <istream>
#include <ostream>

#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

struct ConsoleOptions {
    std::filesystem::path pictures;
    bool prompt = true;  // off when no one is there to see it
};

// Reads until `quit` or the end of the input. 1 when a statement failed or was malformed, else 0.
int runConsole(Phone& phone, const ConsoleOptions& options, std::istream& input,
               std::ostream& output);

}  // namespace simulator::scenario
