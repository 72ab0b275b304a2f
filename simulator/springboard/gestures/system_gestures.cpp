#include "simulator/springboard/gestures/system_gestures.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/display.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/presence.hpp"
#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/gestures/reachability.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"

namespace simulator {

namespace {

constexpr double bottomBand = 8;  // points above the bottom edge where a pull starts
// Points above the bottom edge, beside the home bar, where a swipe down asks for Reachability.
constexpr double footBand = 34;
// Points below the top edge, as high as the status bar.
constexpr double topBand = 20;
constexpr double topBandBesideNotch = 44;
constexpr double hysteresis = 10;    // points that a finger moves before it is a pan
constexpr double restingTime = 0.1;  // seconds without a move after which a finger is at rest
constexpr double unlockDistance = 60;

// The form of the report is that of the system version: from 13.4 on it names the gesture.
template <FixedString threeParts>
void send(Object receiver, const PullReport& report) {
    SBGrabberTongue tongue = grabberTongue();
    if (pullReportsNameTheGesture()) {
        receiver.template sendIfAnswered<threeParts + FixedString{"andGesture:"}>(
            tongue, report.distance, report.velocity, edgePullPan());
    } else {
        receiver.template sendIfAnswered<threeParts>(tongue, report.distance, report.velocity);
    }
}

void send(Object receiver, const PullReport& report) {
    switch (report.stage) {
        case UIGestureRecognizer::began:
            send<"grabberTongueBeganPulling:withDistance:andVelocity:">(receiver, report);
            break;
        case UIGestureRecognizer::changed:
            send<"grabberTongueUpdatedPulling:withDistance:andVelocity:">(receiver, report);
            break;
        case UIGestureRecognizer::ended:
            send<"grabberTongueEndedPulling:withDistance:andVelocity:">(receiver, report);
            break;
        default:
            send<"grabberTongueCanceledPulling:withDistance:andVelocity:">(receiver, report);
    }
}

Finger fingerOf(const PullReport& report) {
    Finger finger;
    finger.location = edgeLocation(report.edge, report.distance, activeOrientation());
    finger.velocity = vectorToDisplay({0, -report.velocity}, activeOrientation());
    finger.state = report.stage;
    return finger;
}

void reportPull(const PullReport& report) {
    if (configuration().homeButton) {
        reportControlCenterPull(report);
    } else {
        reportSwitcherPull(report);
    }
}

// Other phones than real ones have another action for it, which nothing drives.
bool hasReachabilitySwipe() { return realRelease() != 0 && !configuration().homeButton; }

double interfaceHeight() { return interfaceSize(activeOrientation()).height; }

}  // namespace

bool reportSwitcherPull(const PullReport& report) {
    SBFluidSwitcherGestureManager manager = gestureManager();
    if (!manager) return false;
    if (SBSystemPanGestureRecognizer pan = edgePullPan()) drive(pan, fingerOf(report));
    send(manager, report);
    return true;
}

bool reportControlCenterPull(const PullReport& report) {
    SBControlCenterController center = controlCenter();
    if (!center) return false;
    Finger finger = fingerOf(report);
    setControlCenterFinger(finger.location);
    if (SBSystemPanGestureRecognizer pan = edgePullPan()) drive(pan, finger);
    send(center, report);
    return true;
}

bool reportStatusBarPull(GestureStage stage, CGPoint location, CGPoint velocity) {
    SBControlCenterController center = controlCenter();
    if (!center) return false;
    Finger finger;
    finger.location = location;
    finger.velocity = velocity;
    finger.state = stage;
    SBSystemPanGestureRecognizer pan = statusBarPan();
    if (!pan) return false;
    drive(pan, finger);
    center.send<"_handleStatusBarPullDownGesture:">(pan);
    return true;
}

bool pullMayBegin(double edge, CGPoint velocity) {
    SBFluidSwitcherGestureExclusionTrapezoid trapezoid = exclusionTrapezoid();
    if (configuration().homeButton || !trapezoid) return true;
    CGRect bounds = UIScreen::mainScreen().bounds();
    return trapezoid.send<"shouldBeginGestureAtStartingPoint:velocity:bounds:", bool>(
        CGPoint{edge, bounds.size.height}, velocity, bounds);
}

void pullFromEdge(double edge, double distance, double seconds, double releaseVelocity) {
    long steps = std::max(1L, std::lround(seconds / Clock::frame));
    double step = std::max(seconds, Clock::frame) / static_cast<double>(steps);
    double velocity = distance / (step * static_cast<double>(steps));
    bool allowed = pullMayBegin(edge, {0, -velocity});
    bool began = false;
    for (long i = 1; i <= steps; ++i) {
        Clock::shared().advance(step);
        double pulled = distance * static_cast<double>(i) / static_cast<double>(steps);
        if (!allowed || (!began && pulled < hysteresis)) continue;
        reportPull({began ? UIGestureRecognizer::changed : UIGestureRecognizer::began, edge, pulled,
                    velocity});
        began = true;
    }
    if (began) reportPull({UIGestureRecognizer::ended, edge, distance, releaseVelocity});
}

void SystemGestures::down(CGPoint place) {
    CGSize size = interfaceSize(activeOrientation());
    // Only the right part of the top belongs to Control Center, the rest to the notifications.
    bool right = place.x >= size.width * 2 / 3;
    bool notch = !configuration().homeButton && size.height > size.width;
    kind_ = Kind::none;
    if (place.y >= size.height - bottomBand) {
        kind_ = Kind::bottomEdge;
    } else if (place.y >= size.height - footBand && hasReachabilitySwipe()) {
        kind_ = Kind::foot;
    } else if (place.y <= (notch ? topBandBesideNotch : topBand) && right) {
        kind_ = Kind::statusBar;
    }
    taken_ = false;
    start_ = place_ = place;
    velocity_ = {};
}

bool SystemGestures::begins(CGPoint velocity) const {
    double away = kind_ == Kind::bottomEdge ? start_.y - place_.y : place_.y - start_.y;
    if (away < hysteresis) return false;
    return kind_ != Kind::bottomEdge || pullMayBegin(start_.x, velocity);
}

bool SystemGestures::moved(CGPoint place, double time) {
    if (kind_ == Kind::none) return false;
    double passed = time - time_;
    if (passed > 0) {
        velocity_ = {(place.x - place_.x) / passed, (place.y - place_.y) / passed};
    }
    place_ = place;
    time_ = time;
    double away = kind_ == Kind::bottomEdge ? -velocity_.y : velocity_.y;
    if (taken_) {
        report(UIGestureRecognizer::changed, away);
    } else if (begins(velocity_)) {
        taken_ = true;
        report(UIGestureRecognizer::began, away);
    }
    return taken_;
}

bool SystemGestures::up(double time) {
    bool taken = taken_;
    if (taken) {
        double away = kind_ == Kind::bottomEdge ? -velocity_.y : velocity_.y;
        report(UIGestureRecognizer::ended, time - time_ > restingTime ? 0 : away);
    }
    kind_ = Kind::none;
    taken_ = false;
    return taken;
}

bool SystemGestures::cancelled() {
    bool taken = taken_;
    if (taken) report(UIGestureRecognizer::cancelled, 0);
    kind_ = Kind::none;
    taken_ = false;
    return taken;
}

void SystemGestures::report(GestureStage stage, double velocity) {
    if (kind_ == Kind::foot) {
        if (stage == UIGestureRecognizer::ended && !isLocked()) swipeForReachability();
        return;
    }
    if (kind_ == Kind::statusBar) {
        const long orientation = activeOrientation();
        reportStatusBarPull(stage, toDisplay(place_, orientation),
                            vectorToDisplay({0, velocity}, orientation));
        return;
    }
    double distance = interfaceHeight() - place_.y;
    if (isLocked()) {  // the lock screen goes up with the finger instead
        if (stage == UIGestureRecognizer::ended && distance >= unlockDistance) {
            lockScreenManager().send<"unlockUIFromSource:withOptions:">(lockButton, NSDictionary());
        }
        return;
    }
    reportPull({stage, start_.x, distance, velocity});
}

}  // namespace simulator
