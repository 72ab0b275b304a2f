#include "simulator/springboard/gestures/switcher_gestures.hpp"

#include <cmath>

#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/pull_forms.hpp"
#include "simulator/springboard/gestures/reachability.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct TongueState {
    Strong<UIView> container;
    Strong<SBSystemPanGestureRecognizer> pan;
};
struct ManagerState {
    Strong<SBGrabberTongue> tongue;
};

// Points of a pull, at rest or upward, that bring the user home.
constexpr double homeDistance = 50;

UIView tongueContainer(SBGrabberTongue self) { return stateOf<TongueState>(self).container; }

UIPanGestureRecognizer edgePull(SBGrabberTongue self) { return stateOf<TongueState>(self).pan; }

SBGrabberTongue deckGrabberTongue(SBFluidSwitcherGestureManager self) {
    return stateOf<ManagerState>(self).tongue;
}

void beganPulling(SBFluidSwitcherGestureManager, SBGrabberTongue, double distance, double) {
    trackScene(distance);
}

void updatedPulling(SBFluidSwitcherGestureManager, SBGrabberTongue, double distance, double) {
    trackScene(distance);
}

void endedPulling(SBFluidSwitcherGestureManager, SBGrabberTongue, double distance,
                  double velocity) {
    if (distance >= homeDistance && velocity >= 0) {
        goHome();
        refreshWindows();
    } else {
        restoreScene();
    }
}

void canceledPulling(SBFluidSwitcherGestureManager, SBGrabberTongue, double, double) {
    restoreScene();
}

bool shouldBeginReachability(SBFluidSwitcherGestureManager, UIGestureRecognizer) {
    return reachabilityManager().send<"reachabilityEnabled", bool>();
}

// The action of the swipe on 11, in every state of its gesture.
void activateReachability(SBFluidSwitcherGestureManager, UIGestureRecognizer gesture) {
    if (gesture.state() != UIGestureRecognizer::ended) return;
    reachabilityManager().send<"toggleReachability">();
}

// Mostly upward pulls may begin anywhere along the edge, others only in its middle two thirds.
bool shouldBegin(SBFluidSwitcherGestureExclusionTrapezoid self, CGPoint start, CGPoint velocity,
                 CGRect bounds) {
    if (std::abs(velocity.x) <= std::abs(velocity.y)) return true;
    double sixth = bounds.size.width / 6;
    bool inside = start.x >= bounds.origin.x + sixth &&
                  start.x <= bounds.origin.x + bounds.size.width - sixth;
    return inside || self.send<"allowHorizontalSwipesOutsideTrapezoid", bool>();
}

bool allowHorizontalSwipes(SBFluidSwitcherGestureExclusionTrapezoid) { return false; }

Strong<SBGrabberTongue> makeTongue() {
    auto tongue = create<SBGrabberTongue>();
    if (!tongue) return tongue;
    CGSize portrait = screen().portrait;
    TongueState& state = stateOf<TongueState>(tongue);
    state.container = create<UIView, "initWithFrame:">(rect(0, 0, portrait.width, portrait.height));
    state.container.send<"setUserInteractionEnabled:">(false);
    state.pan = makeSystemPan(state.container);
    return tongue;
}

}  // namespace

SBFluidSwitcherGestureManager gestureManager() {
    static auto& shared = *new Strong<SBFluidSwitcherGestureManager>;
    if (!shared) {
        shared = create<SBFluidSwitcherGestureManager>();
        if (shared) stateOf<ManagerState>(shared).tongue = makeTongue();
    }
    return shared;
}

SBGrabberTongue grabberTongue() {
    SBFluidSwitcherGestureManager manager = gestureManager();
    return manager ? SBGrabberTongue(stateOf<ManagerState>(manager).tongue) : SBGrabberTongue();
}

SBSystemPanGestureRecognizer edgePullPan() {
    SBGrabberTongue tongue = grabberTongue();
    if (!tongue) return {};
    return stateOf<TongueState>(tongue).pan;
}

SBFluidSwitcherGestureExclusionTrapezoid exclusionTrapezoid() {
    static auto& shared = *new Strong<SBFluidSwitcherGestureExclusionTrapezoid>;
    if (!shared) shared = create<SBFluidSwitcherGestureExclusionTrapezoid>();
    return shared;
}

void registerSwitcherGestures() {
    standIn<SBGrabberTongue, Object, TongueState>(
        Variables{"_tongueContainer", "_edgePullGestureRecognizer"})
        .method<"_tongueContainer", &tongueContainer>()
        .method<"_edgePullGestureRecognizer", &edgePull>();
    const auto manager = standIn<SBFluidSwitcherGestureManager, Object, ManagerState>()
                             .method<"deckGrabberTongue", &deckGrabberTongue>()
                             .method<"_shouldBeginReachabilityGesture:", &shouldBeginReachability>()
                             .realMethod<"_activateReachability:", &activateReachability>();
    answerPulls<SBFluidSwitcherGestureManager, beganPulling, updatedPulling, endedPulling,
                canceledPulling>(manager);
    standIn<SBFluidSwitcherGestureExclusionTrapezoid, Object>()
        .method<"shouldBeginGestureAtStartingPoint:velocity:bounds:", &shouldBegin>()
        .method<"allowHorizontalSwipesOutsideTrapezoid", &allowHorizontalSwipes>();
}

}  // namespace simulator
