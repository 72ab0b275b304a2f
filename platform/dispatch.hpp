// The main queue, by the C functions that take a function and a context instead of a block: work for
// later turns of the main run loop. Delays are seconds.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

extern "C" {

struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;

std::uint64_t dispatch_time(std::uint64_t when, std::int64_t nanoseconds);
void dispatch_async_f(dispatch_queue_s* queue, void* context, void (*work)(void* context));
void dispatch_after_f(std::uint64_t when, dispatch_queue_s* queue, void* context,
                      void (*work)(void* context));
}

namespace platform {

namespace detail {

template <class Work>
void runQueued(void* context) {
    std::unique_ptr<Work> kept(static_cast<Work*>(context));
    (*kept)();
}

}  // namespace detail

// Runs the work once, at the next turn, on the main thread. May be called on any thread.
template <class Work>
void onMainQueue(Work work) {
    dispatch_async_f(&_dispatch_main_q, new Work(std::move(work)), &detail::runQueued<Work>);
}

// Runs the work once, on the main thread, that many seconds from now at the earliest.
template <class Work>
void afterSeconds(double seconds, Work work) {
    constexpr double nanosecondsPerSecond = 1e9;
    constexpr std::uint64_t now = 0;
    dispatch_after_f(dispatch_time(now, static_cast<std::int64_t>(seconds * nanosecondsPerSecond)),
                     &_dispatch_main_q, new Work(std::move(work)), &detail::runQueued<Work>);
}

}  // namespace platform
