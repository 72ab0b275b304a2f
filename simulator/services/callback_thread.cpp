#include "simulator/services/callback_thread.hpp"

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/ownership.hpp"
#include "simulator/runtime/crash.hpp"

// GNUstep's: threads that it did not start are made known to it.
extern "C" unsigned char GSRegisterCurrentThread();

namespace simulator {

namespace {

// One thread for the life of the process: text is measured with tables that each thread makes anew.
class Worker {
  public:
    Worker() {
        std::thread([this] { serve(); }).detach();
    }

    void run(const std::function<void()>& work) {
        std::unique_lock lock(mutex_);
        work_ = &work;
        changed_.notify_all();
        changed_.wait(lock, [this] { return !work_; });
    }

  private:
    [[noreturn]] void serve() {
        GSRegisterCurrentThread();
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return work_; });
            platform::AutoreleasePool pool;
            guarded(*work_);
            work_ = nullptr;
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    const std::function<void()>* work_ = nullptr;
};

}  // namespace

void onCallbackThread(const std::function<void()>& work) {
    static auto& worker = *new Worker;  // the thread outlives the static objects
    worker.run(work);
}

}  // namespace simulator
