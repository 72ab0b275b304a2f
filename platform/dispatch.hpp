// The main queue, by the C functions that take a function and a context instead of a block.
#pragma once

#include <cstdint>
#include <utility>

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
std::uint64_t dispatch_time(std::uint64_t when, std::int64_t nanoseconds);
void dispatch_after_f(std::uint64_t when, dispatch_queue_s* queue, void* context,
                      void (*work)(void* context));
}

namespace platform {

// Runs the work on the main queue that many seconds from now at the earliest.
template <class Work>
void afterSeconds(double seconds, Work work) {
    constexpr double nanosecondsPerSecond = 1e9;
    constexpr std::uint64_t now = 0;
    auto run = [](void* context) {
        Work* kept = static_cast<Work*>(context);
        (*kept)();
        delete kept;
    };
    dispatch_after_f(dispatch_time(now, static_cast<std::int64_t>(seconds * nanosecondsPerSecond)),
                     &_dispatch_main_q, new Work(std::move(work)), run);
}

}  // namespace platform
