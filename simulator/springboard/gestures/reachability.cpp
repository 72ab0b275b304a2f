#include "simulator/springboard/gestures/reachability.hpp"

#include "simulator/springboard/display/windows.hpp"

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

void handleReachabilityPan(SBBarSwipeAffordanceView, UIPanGestureRecognizer) {
    reachabilityManager().send<"toggleReachability">();
}

}  // namespace

SBReachabilityManager reachabilityManager() {
    static auto& shared = *new Strong<SBReachabilityManager>;
    if (!shared) shared = create<SBReachabilityManager>();
    return shared;
}

void registerReachability() {
    standIn<SBReachabilityManager, Object, ReachabilityState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"reachabilityEnabled", &reachabilityEnabled>()
        .method<"setReachabilityEnabled:", &setReachabilityEnabled>()
        .method<"reachabilityModeActive", &reachabilityModeActive>()
        .method<"toggleReachability", &toggleMode>()
        .method<"_toggleReachabilityMode", &toggleMode>();
    standIn<SBBarSwipeAffordanceView, UIView>()
        .method<"_handleReachabilityPanGesture:", &handleReachabilityPan>();
    // Kept by name from earlier systems; nothing of this phone makes one.
    standIn<SBSwitcherContainerView, UIView>();
}

}  // namespace simulator
