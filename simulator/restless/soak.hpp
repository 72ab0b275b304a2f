// One phone that is used for long in the same way: what it takes of memory, and how much there is of what
// could grow, as a table that is plotted.
#pragma once

#include <filesystem>
#include <ostream>

#include "simulator/scenario/runner.hpp"

namespace simulator::restless {

struct SoakOptions {
    long opens = 1000;  // and as many closes
    double hours = 0;   // of the phone's time with music playing, afterwards
    std::filesystem::path table;
};

// The exit status: 1 when something was wrong at one of the rests.
int runSoak(const SoakOptions& options, const scenario::PhoneMaker& makePhone,
            std::ostream& output);

}  // namespace simulator::restless
