// The command: many phones' lives from one seed, what went wrong in them made small and saved.
#pragma once

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>

#include "simulator/scenario/runner.hpp"

namespace simulator::restless {

struct RestlessOptions {
    std::uint64_t seed = 0;
    long events = 1000;
    int eventsOfALife = 1000;  // after which another phone is taken
    std::string device = {};   // of every phone; drawn from the seed when empty, as the next two
    std::string system = {};
    bool real = false;
    std::filesystem::path save = {};  // the folder for what was found; here when empty
    unsigned jobs = 1;                // phones at once
};

// The exit status: 0 when nothing was found, else 1. The same seed and options say the same, but for how
// long it took.
int runRestless(const RestlessOptions& options, const scenario::PhoneMaker& makePhone,
                std::ostream& output);

}  // namespace simulator::restless
