#include "simulator/springboard/display/orientation.hpp"

#include <optional>
#include <utility>
#include <vector>

#include "platform/springboard.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/home/home_screen.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

constexpr double turningDuration = 0.4;  // seconds, for a quarter turn

// How the phone is held, while that differs from how its interface is turned.
std::optional<long>& heldOrientation() {
    static std::optional<long> held;
    return held;
}

long turns = 0;

std::vector<Object>& observers() {
    static auto& list = *new std::vector<Object>;
    return list;
}

using Observation = void (*)(Object observer, long from, long to);

void tellBefore(Object observer, long, long to) {
    if (observer.respondsTo(selector<"activeInterfaceOrientationWillChangeToOrientation:">())) {
        observer.send<"activeInterfaceOrientationWillChangeToOrientation:">(to);
    }
}

void tellAfter(Object observer, long from, long to) {
    constexpr FixedString message{
        "activeInterfaceOrientationDidChangeToOrientation:willAnimateWithDuration:"
        "fromOrientation:"};
    if (observer.respondsTo(selector<message>())) {
        observer.send<message>(to, turningDuration, from);
    }
}

// An observer may add others while it is told.
void tell(Observation observation, long from, long to) {
    const std::vector<Object> told = observers();
    for (Object observer : told) observation(observer, from, to);
}

}  // namespace

long activeOrientation() { return screen().orientation; }

void addOrientationObserver(Object observer) {
    if (observer) observers().push_back(observer);
}

void turnInterface(long orientation) {
    ++turns;
    long before = activeOrientation();
    UIDevice::currentDevice().setOrientation(orientation, true);
    if (before == orientation) return;
    tell(&tellBefore, before, orientation);
    setInterfaceOrientation(orientation);
    layWindows();
    layHomeScreen();
    refreshWindows();
    tell(&tellAfter, before, orientation);
    SpringBoard::shared().send<"_postActiveInterfaceOrientationChangedNotificationAnimated:">(true);
}

void turnPhone(long orientation) {
    if (isOn(Setting::orientationLock)) {
        heldOrientation() = orientation;
    } else {
        turnInterface(orientation);
    }
}

long turnsSoFar() { return turns; }

void unlockTurn() {
    if (auto held = std::exchange(heldOrientation(), std::nullopt)) turnInterface(*held);
}

}  // namespace simulator
