#include "simulator/springboard/display/time_of_day.hpp"

#include <cmath>

#include "platform/foundation.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/springboard/display/artwork.hpp"

namespace simulator {

namespace {

using platform::NSNotificationCenter;
using platform::operator""_ns;

constexpr double minute = 60;  // seconds

Clock::Ticket nextMinute = 0;

void awaitMinute() {
    Clock& clock = Clock::shared();
    nextMinute = clock.after(minute - std::fmod(clock.date(), minute), [] {
        tellTime();
        awaitMinute();
    });
}

}  // namespace

void followTime() {
    registerArtwork();
    awaitMinute();
}

void clockWasSet() {
    Clock::shared().withdraw(nextMinute);
    awaitMinute();
    tellTime();
    NSNotificationCenter center = NSNotificationCenter::defaultCenter();
    center.post("NSSystemClockDidChangeNotification"_ns);
    center.post("UIApplicationSignificantTimeChangeNotification"_ns);
}

}  // namespace simulator
