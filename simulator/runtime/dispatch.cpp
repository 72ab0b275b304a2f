// The dispatch functions, for the one queue that there is: the main queue, on the phone's clock.
// Times are nanoseconds; 0 is now, the largest number for ever.
#include <cmath>
#include <cstdint>
#include <limits>

#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/exports.hpp"

namespace {

constexpr double nanosecondsPerSecond = 1e9;
constexpr std::uint64_t forever = std::numeric_limits<std::uint64_t>::max();

// The clock starts at zero, which means "now" to its callers: absolute times begin at one.
std::uint64_t absoluteNow() {
    return 1 + static_cast<std::uint64_t>(
                   std::llround(simulator::Clock::shared().now() * nanosecondsPerSecond));
}

}  // namespace

struct dispatch_queue_s {
    std::uintptr_t opaque[8];
};
using dispatch_function_t = void (*)(void* context);

extern "C" {
__attribute__((visibility("default"))) dispatch_queue_s _dispatch_main_q{};
}

VANTORI_EXPORT std::uint64_t dispatch_time(std::uint64_t when, std::int64_t delta) {
    if (when == forever) return forever;
    std::uint64_t base = when == 0 ? absoluteNow() : when;
    if (delta < 0 && base <= static_cast<std::uint64_t>(-delta)) return 1;
    return base + static_cast<std::uint64_t>(delta);
}

VANTORI_EXPORT void dispatch_async_f(dispatch_queue_s*, void* context, dispatch_function_t work) {
    simulator::Clock::shared().post([=] { work(context); });
}

VANTORI_EXPORT void dispatch_after_f(std::uint64_t when, dispatch_queue_s*, void* context,
                                     dispatch_function_t work) {
    if (when == forever) return;
    double seconds = when == 0 ? 0 : static_cast<double>(when - 1) / nanosecondsPerSecond;
    // A minimum delay: when its time has come it takes its turn in the queue.
    simulator::Clock::shared().at(seconds,
                                  [=] { simulator::Clock::shared().post([=] { work(context); }); });
}
