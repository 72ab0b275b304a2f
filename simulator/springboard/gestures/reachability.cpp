#include "simulator/springboard/gestures/reachability.hpp"

#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBBarSwipeAffordanceView, UIView);
VANTORI_CLASS(SBSwitcherContainerView, UIView);

struct ReachabilityState {
    bool disabled;
    bool active;
};

constexpr double slidingDuration = 0.4;
constexpr double loweredPart = 0.4;  // of the window's height

SBReachabilityManager sharedInstance(Class) { return reachabilityManager(); }

bool reachabilityEnabled(SBReachabilityManager self) {
    return !stateOf<ReachabilityState>(self).disabled;
}

void setReachabilityEnabled(SBReachabilityManager self, bool enabled) {
    stateOf<ReachabilityState>(self).disabled = !enabled;
}

bool reachabilityModeActive(SBReachabilityManager self) {
    return stateOf<ReachabilityState>(self).active;
}

void slide(UIWindow window, bool lowered) {
    CGRect bounds = window.bounds();
    bounds.origin.y = lowered ? -bounds.size.height * loweredPart : 0;
    UIView::animateWithSpring(slidingDuration, 0, 1, 0, 0, block([=] { window.setBounds(bounds); }),
                              {});
}

void toggleMode(SBReachabilityManager self) {
    bool& active = stateOf<ReachabilityState>(self).active;
    active = !active;
    slide(windows().home, active);
    slide(windows().scenes, active);
}

// 11 names who asks for it.
void toggleModeFor(SBReachabilityManager self, Object) { toggleMode(self); }

bool canActivate(SBReachabilityManager self) {
    const ReachabilityState& state = stateOf<ReachabilityState>(self);
    return !state.disabled && !state.active;
}

// The action of the swipe, in every state of its gesture. It asks neither of the two toggles.
void activate(SBReachabilityManager self, UIGestureRecognizer gesture) {
    if (gesture.state() != UIGestureRecognizer::ended) return;
    if (self.send<"canActivateReachability", bool>()) toggleMode(self);
}

void handleReachabilityPan(SBBarSwipeAffordanceView, UIPanGestureRecognizer) {
    reachabilityManager().send<"toggleReachability">();
}

}  // namespace

SBReachabilityManager reachabilityManager() {
    static auto& shared = *new Strong<SBReachabilityManager>;
    if (!shared) shared = create<SBReachabilityManager>();
    return shared;
}

void swipeForReachability() {
    SBFluidSwitcherGestureManager gestures = gestureManager();
    SBReachabilityManager manager = reachabilityManager();
    constexpr auto action = &selector<"_activateReachability:">;
    Object target = manager;
    if (!target.respondsTo(action())) target = gestures;
    if (!target.respondsTo(action()) || manager.send<"reachabilityModeActive", bool>()) return;
    static auto& pan = *new Strong<SBSystemPanGestureRecognizer>(makeSystemPan({}));
    drive(pan, {.state = UIGestureRecognizer::began});
    if (gestures && !gestures.send<"_shouldBeginReachabilityGesture:", bool>(pan)) return;
    target.send<"_activateReachability:">(pan);
    drive(pan, {.state = UIGestureRecognizer::ended});
    target.send<"_activateReachability:">(pan);
}

void registerReachability() {
    standIn<SBReachabilityManager, Object, ReachabilityState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"reachabilityEnabled", &reachabilityEnabled>()
        .method<"setReachabilityEnabled:", &setReachabilityEnabled>()
        .method<"reachabilityModeActive", &reachabilityModeActive>()
        .method<"toggleReachability", &toggleMode>()
        .method<"_toggleReachabilityMode", &toggleMode>()
        .realMethod<"_toggleReachabilityModeWithRequestingObserver:", &toggleModeFor>()
        .realMethod<"canActivateReachability", &canActivate>()
        .realMethod<"_activateReachability:", &activate>();
    standIn<SBBarSwipeAffordanceView, UIView>()
        .method<"_handleReachabilityPanGesture:", &handleReachabilityPan>();
    // Kept by name from earlier systems; nothing of this phone makes one.
    standIn<SBSwitcherContainerView, UIView>();
}

}  // namespace simulator
