#include "simulator/springboard/control_center/control_center.hpp"

#include <algorithm>

#include "simulator/hardware/configuration.hpp"
#include "simulator/services/radios.hpp"
#include "simulator/springboard/control_center/module_grid.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/pull_forms.hpp"
#include "simulator/uikit/parts.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

enum class Stage {
    closed,
    tracking,  // under the finger that pulls it open
    open,
    prepared,  // for a module that is to be shown alone
    alone,     // that module is shown
};

struct CenterState {
    Strong<UIView> panel;
    Strong<UIView> ground;  // the blur behind the modules
    Strong<UIView> header;  // status bar and home indicator over it
    Strong<UIView> gestureView, statusBarView;
    Strong<SBSystemPanGestureRecognizer> statusBarPan;
    CGPoint finger;
    double travel;  // of the pull that opens it whole, in points
    bool fromFoot;  // it comes up from the bottom edge
    Stage stage;
};

constexpr double duration = 0.45;      // seconds, opening and closing
constexpr double damping = 0.82;       // of opening; closing does not swing
constexpr double leastPull = 40;       // points that open it at release
constexpr double leastPush = 60;       // points that close it at release
constexpr double closingFlick = 300;   // points per second, likewise
constexpr double groundTravel = 0.45;  // of the travel, after which the blur is whole
constexpr double headerTravel = 0.25;  // the last part, in which the header comes
constexpr double beyond = 0.12;        // of what is pulled beyond the travel
constexpr double level = 1040;
constexpr double levelAlone = 1080;  // over whatever asked for a module

CenterState& state() { return stateOf<CenterState>(controlCenter()); }

bool isFollowing() { return state().stage == Stage::tracking; }
bool isClosed() { return state().stage == Stage::closed; }

UIWindow window() { return windows().controlCenter; }

void addRecogniser(UIView view, UIGestureRecognizer recogniser) {
    if (!recogniser) return;
    recogniser.setDelegate(controlCenter());
    view.addGestureRecognizer(recogniser);
}

Strong<UIView> makeGround(CGRect bounds) {
    Object blur = UIBlurEffect::withStyle(UIBlurEffect::dark);
    auto ground = create<UIVisualEffectView, "initWithEffect:">(blur);
    ground.setFrame(bounds);
    return ground;
}

Strong<UIView> makeHeader(CGRect bounds) {
    auto header = create<UIView, "initWithFrame:">(bounds);
    header.setUserInteractionEnabled(false);
    dressAsStatusBar(header, StatusBarParts::all, true);
    return header;
}

void buildPanel(bool fromFoot) {
    CenterState& center = state();
    if (center.panel) center.panel.removeFromSuperview();
    CGRect bounds = window().bounds();
    center.fromFoot = fromFoot;
    center.panel = create<UIView, "initWithFrame:">(bounds);
    center.ground = makeGround(bounds);
    center.header = makeHeader(bounds);
    addPart(center.panel, center.ground);
    layModules(bounds.size, fromFoot ? GridSide::foot : GridSide::top);
    center.travel = gridTravel();
    if (moduleCollection()) addPart(center.panel, moduleCollection().view());
    addPart(center.panel, center.header);
    addRecogniser(center.panel, create<UITapGestureRecognizer, "initWithTarget:action:">(
                                    controlCenter(), selector<"_handleDismissTap:">()));
    addRecogniser(center.panel, create<UIPanGestureRecognizer, "initWithTarget:action:">(
                                    controlCenter(), selector<"_handleDismissPan:">()));
    addPart(window(), center.panel);
}

// The modules' edge is at the finger; beyond the travel they give way a little.
void place(double pulled) {
    const CenterState& center = state();
    double travel = std::max(center.travel, 1.0);
    double rest = travel - pulled;
    double away = rest >= 0 ? rest : rest * beyond;
    double shown = std::clamp(pulled / (travel * groundTravel), 0.0, 1.0);
    center.ground.setAlpha(shown);
    // Last, so that it is not seen through what slides over it.
    center.header.setAlpha(std::clamp(1 - rest / (travel * headerTravel), 0.0, 1.0));
    UIView modules = moduleCollection() ? moduleCollection().view() : UIView();
    modules.setTransform({1, 0, 0, 1, 0, center.fromFoot ? away : -away});
}

void animate(double swing, UIView::Changes changes, BlockRef<void(bool)> completion) {
    UIView::animateWithSpring(duration, 0, swing, 0, 0, changes, completion);
}

void startTracking(bool fromFoot) {
    if (!isClosed() && state().stage != Stage::prepared) return;
    collapseModule();
    buildPanel(fromFoot);
    place(0);
    window().setWindowLevel(level);
    window().setHidden(false);
    state().stage = Stage::tracking;
}

void track(double distance) {
    if (isFollowing()) place(distance);
}

void open(BlockRef<void(bool)> completion) {
    state().stage = Stage::open;
    animate(damping, block([] { place(state().travel); }), completion);
}

void close(bool animated, BlockRef<void(bool)> completion) {
    const bool alone = state().stage == Stage::alone;
    state().stage = Stage::closed;
    auto leave = [alone] {
        if (alone) hideExpandedModule();
        place(0);
    };
    auto left = [then = KeptBlock<void(bool)>(completion)](bool finished) {
        if (isClosed()) {
            window().setHidden(true);
            showExpandedModule();
            collapseModule();
        }
        then(finished);
    };
    if (animated) {
        animate(1, block(leave), block<void(bool)>(left));
    } else {
        leave();
        left(true);
    }
}

void finishTracking(double distance, double velocity) {
    if (!isFollowing()) return;
    if (velocity >= 0 && distance >= leastPull) {
        controlCenter().send<"presentAnimated:completion:">(true, BlockRef<void(bool)>());
    } else {
        close(true, {});
    }
}

SBControlCenterController sharedInstance(Class) { return controlCenter(); }

void present(SBControlCenterController, bool animated, BlockRef<void(bool)> completion) {
    if (isClosed()) startTracking(configuration().homeButton);
    open(completion);
    if (!animated) place(state().travel);
}

void dismiss(SBControlCenterController, bool animated, BlockRef<void(bool)> completion) {
    if (!isClosed()) close(animated, completion);
}

// A tap beside the modules: what is expanded goes first.
void handleDismissTap(SBControlCenterController self, UIGestureRecognizer) {
    if (isModuleExpanded() && state().stage == Stage::open) {
        animate(1, block(&collapseModule), {});
        return;
    }
    self.send<"dismissAnimated:completion:">(true, BlockRef<void(bool)>());
}

// Back to where it came from.
void handleDismissPan(SBControlCenterController self, UIPanGestureRecognizer pan) {
    const CenterState& center = state();
    if (center.stage != Stage::open) return;
    const double sign = center.fromFoot ? 1 : -1;
    const double pushed = sign * pan.send<"translationInView:", CGPoint>(pan.view()).y;
    switch (pan.state()) {
        case UIGestureRecognizer::began:
        case UIGestureRecognizer::changed:
            place(center.travel - pushed);
            break;
        case UIGestureRecognizer::ended:
            if (pushed >= leastPush || sign * pan.velocityInView(pan.view()).y >= closingFlick) {
                self.send<"dismissAnimated:completion:">(true, BlockRef<void(bool)>());
                break;
            }
            [[fallthrough]];
        default:
            open({});
    }
}

// A tap on a module is the module's, and an expanded one is not pushed away.
bool shouldReceiveTouch(SBControlCenterController, UIGestureRecognizer recogniser, UITouch touch) {
    if (recogniser.isKindOfClass(classOf<UIPanGestureRecognizer>())) return !isModuleExpanded();
    return !isInModule(touch.send<"view", UIView>());
}

bool isVisible(SBControlCenterController) {
    return !isClosed() && state().stage != Stage::prepared;
}

CGPoint presentGestureLocation(SBControlCenterController) { return state().finger; }

void preparedForExpanding(SBControlCenterController) {
    if (!isClosed()) return;
    buildPanel(configuration().homeButton);
    place(0);
    state().stage = Stage::prepared;
}

UIViewController viewController(SBControlCenterController) { return modularControlCenter(); }

// The module that is expanded, alone over everything else.
void showExpandedView(SBControlCenterController self) {
    if (isClosed()) preparedForExpanding(self);
    if (state().stage != Stage::prepared) return;
    if (!isModuleExpanded()) {
        state().stage = Stage::closed;
        return;
    }
    place(state().travel);
    state().ground.setAlpha(0);
    state().header.setAlpha(0);
    hideExpandedModule();
    window().setWindowLevel(levelAlone);
    window().setHidden(false);
    state().stage = Stage::alone;
    animate(damping, block([] {
                state().ground.setAlpha(1);
                state().header.setAlpha(1);
                showExpandedModule();
            }),
            {});
}

// How far the finger is from the interface's top edge.
double depthOf(CGPoint display) {
    CGSize portrait = screen().portrait;
    switch (activeOrientation()) {
        case orientationUpsideDown:
            return portrait.height - display.y;
        case orientationLandscapeRight:
            return portrait.width - display.x;
        case orientationLandscapeLeft:
            return display.x;
        default:
            return display.y;
    }
}

void handleStatusBarPullDown(SBControlCenterController, UIPanGestureRecognizer pan) {
    UIView reference = pan.view().superview();
    double depth = depthOf(pan.locationInView(reference));
    switch (pan.state()) {
        case UIGestureRecognizer::began:
            startTracking(false);
            track(depth);
            break;
        case UIGestureRecognizer::changed:
            track(depth);
            break;
        case UIGestureRecognizer::ended:
            finishTracking(depth, pan.velocityInView(reference).y);
            break;
        default:
            if (isFollowing()) close(true, {});
    }
}

void beganPulling(SBControlCenterController, SBGrabberTongue, double distance, double) {
    startTracking(true);
    track(distance);
}

void updatedPulling(SBControlCenterController, SBGrabberTongue, double distance, double) {
    track(distance);
}

void endedPulling(SBControlCenterController, SBGrabberTongue, double distance, double velocity) {
    finishTracking(distance, velocity);
}

void canceledPulling(SBControlCenterController, SBGrabberTongue, double, double) {
    if (isFollowing()) close(true, {});
}

}  // namespace

SBControlCenterController controlCenter() {
    static auto& shared = *new Strong<SBControlCenterController>;
    if (!shared) shared = create<SBControlCenterController>();
    return shared;
}

bool controlCenterIsOpen() { return controlCenter() && state().stage == Stage::open; }

void dismissControlCenter(bool animated) {
    if (controlCenter() && !isClosed()) {
        controlCenter().send<"dismissAnimated:completion:">(animated, BlockRef<void(bool)>());
    }
}

void setControlCenterFinger(CGPoint location) { state().finger = location; }

SBSystemPanGestureRecognizer statusBarPan() {
    CenterState& center = state();
    if (!center.statusBarPan) {
        // In a view that, like the system's for its gestures, does not turn with the interface.
        const CGSize portrait = screen().portrait;
        center.statusBarView = create<UIView, "initWithFrame:">(rect(0, 0, portrait.width, 44));
        center.gestureView =
            create<UIView, "initWithFrame:">(rect(0, 0, portrait.width, portrait.height));
        addPart(center.gestureView, center.statusBarView);
        center.statusBarPan = makeSystemPan(center.statusBarView);
    }
    return center.statusBarPan;
}

void registerControlCenter() {
    registerModuleGrid();
    onRadioChange([] {
        if (!controlCenter() || !state().header) return;
        dressAsStatusBar(state().header, StatusBarParts::all, true);
    });
    const auto center = standIn<SBControlCenterController, Object, CenterState>()
                            .classMethod<"sharedInstance", &sharedInstance>()
                            .method<"presentAnimated:completion:", &present>()
                            .method<"dismissAnimated:completion:", &dismiss>()
                            .method<"isVisible", &isVisible>()
                            .realMethod<"viewController", &viewController>()
                            .method<"preparedForExpanding", &preparedForExpanding>()
                            .method<"showExpandedViewAnimated", &showExpandedView>()
                            .method<"_handleDismissTap:", &handleDismissTap>()
                            .method<"_handleDismissPan:", &handleDismissPan>()
                            .method<"gestureRecognizer:shouldReceiveTouch:", &shouldReceiveTouch>()
                            .method<"_presentGestureLocationInView", &presentGestureLocation>()
                            .method<"_handleStatusBarPullDownGesture:", &handleStatusBarPullDown>();
    answerPulls<SBControlCenterController, beganPulling, updatedPulling, endedPulling,
                canceledPulling>(center);
}

}  // namespace simulator
