// The main queue: work for the next turns of the main run loop, one piece after another.
#pragma once

#include <memory>
#include <utility>

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
void dispatch_async_f(dispatch_queue_s* queue, void* context, void (*work)(void*));
}

namespace platform {

// Runs work once, later, on the main thread. May be called on any thread.
template <class Work>
void onMainQueue(Work work) {
    auto run = [](void* context) {
        std::unique_ptr<Work> kept(static_cast<Work*>(context));
        (*kept)();
    };
    dispatch_async_f(&_dispatch_main_q, new Work(std::move(work)), run);
}

}  // namespace platform
