#include "simulator/springboard/control_center.hpp"

#include <algorithm>
#include "simulator/springboard/parts.hpp"
#include "simulator/springboard/pull_forms.hpp"
#include "simulator/springboard/uikit_bridge.hpp"

#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/windows.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct CenterState {
    Strong<UIView> panel;
    Strong<UIView> statusBarView;
    Strong<SBSystemPanGestureRecognizer> statusBarPan;
    CGPoint finger;
    bool open;
    bool tracking;
};

constexpr double showingDuration = 0.4;
constexpr double openingTravel = 200;  // points of a pull that opens it whole
constexpr double leastPull = 40;       // points that open it at release

CenterState& state() { return stateOf<CenterState>(controlCenter()); }

// A module of the grid of four columns, with a drawing of what it stands for.
struct Tile {
    int column, row, columns, rows;
    const char* symbol;
};

constexpr Tile tiles[]{
    {0, 0, 2, 2, "wifi"},       {2, 0, 2, 2, "note"},       {0, 2, 1, 1, "orientation-lock"},
    {1, 2, 1, 1, "moon"},       {2, 2, 1, 2, "sun"},        {3, 2, 1, 2, "speaker"},
    {0, 3, 2, 1, "airplay"},    {0, 4, 1, 1, "flashlight"}, {1, 4, 1, 1, "timer"},
    {2, 4, 1, 1, "calculator"}, {3, 4, 1, 1, "camera"},
};

void addSymbol(UIView tile, const char* name) {
    constexpr double side = 30;  // points
    constexpr rendering::Colour white{1, 1, 1, 1};
    CGSize size = tile.bounds().size;
    auto image = create<UIImageView, "initWithImage:">(
        imageOfPicture(rendering::Picture::symbol(name, {side, side}, white)));
    image.setFrame(rect((size.width - side) / 2, (size.height - side) / 2, side, side));
    addPart(tile, image);
}

void addTile(UIView panel, CGRect frame, const char* symbol) {
    auto tile = create<UIView, "initWithFrame:">(frame);
    tile.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.35));
    tile.send<"_setContinuousCornerRadius:">(18.0);
    addSymbol(tile, symbol);
    addPart(panel, tile);
}

void addTiles(UIView panel) {
    constexpr double unit = 70, gap = 14;
    double width = panel.bounds().size.width;
    double left = (width - 4 * unit - 3 * gap) / 2;
    double top = panel.bounds().size.height > width ? 120 : 10;
    for (const Tile& tile : tiles) {
        addTile(panel,
                rect(left + tile.column * (unit + gap), top + tile.row * (unit + gap),
                     tile.columns * unit + (tile.columns - 1) * gap,
                     tile.rows * unit + (tile.rows - 1) * gap),
                tile.symbol);
    }
}

void buildPanel() {
    UIWindow window = windows().controlCenter;
    if (state().panel) state().panel.removeFromSuperview();
    auto panel = create<UIView, "initWithFrame:">(window.bounds());
    Object blur = UIBlurEffect::withStyle(UIBlurEffect::dark);
    auto ground = create<UIVisualEffectView, "initWithEffect:">(blur);
    ground.setFrame(panel.bounds());
    addPart(panel, ground);
    addTiles(panel);
    auto tap = create<UITapGestureRecognizer, "initWithTarget:action:">(
        controlCenter(), selector<"_handleDismissTap:">());
    if (tap) panel.send<"addGestureRecognizer:">(UIGestureRecognizer(tap));
    addPart(window, panel);
    state().panel = std::move(panel);
}

void setProgress(double progress) {
    UIView panel = state().panel;
    panel.setAlpha(std::clamp(progress, 0.0, 1.0));
    double lift = (1 - std::clamp(progress, 0.0, 1.0)) * -40;
    panel.setTransform({1, 0, 0, 1, 0, lift});
}

void move(double progress, BlockRef<void(bool)> completion) {
    UIView::animateWithSpring(showingDuration, 0, 1, 0, 0, block([=] { setProgress(progress); }),
                              completion);
}

void startTracking() {
    if (state().open) return;
    buildPanel();
    setProgress(0);
    windows().controlCenter.setHidden(false);
    state().tracking = true;
}

void track(double distance) {
    if (state().tracking) setProgress(distance / openingTravel);
}

void open(BlockRef<void(bool)> completion) {
    state().tracking = false;
    state().open = true;
    move(1, completion);
}

void close(BlockRef<void(bool)> completion) {
    state().tracking = false;
    state().open = false;
    UIWindow window = windows().controlCenter;
    KeptBlock<void(bool)> then(completion);
    move(0, block<void(bool)>([window, then](bool finished) {
             if (!controlCenterIsOpen()) window.setHidden(true);
             then(finished);
         }));
}

void finishTracking(double distance, double velocity) {
    if (!state().tracking) return;
    if (velocity >= 0 && distance >= leastPull) {
        controlCenter().send<"presentAnimated:completion:">(true, BlockRef<void(bool)>());
    } else {
        close({});
    }
}

SBControlCenterController sharedInstance(Class) { return controlCenter(); }

void present(SBControlCenterController, bool, BlockRef<void(bool)> completion) {
    if (!state().open && !state().tracking) startTracking();
    open(completion);
}

void dismiss(SBControlCenterController, bool, BlockRef<void(bool)> completion) {
    if (state().open || state().tracking) close(completion);
}

void handleDismissTap(SBControlCenterController self, UIGestureRecognizer) {
    self.send<"dismissAnimated:completion:">(true, BlockRef<void(bool)>());
}

bool isVisible(SBControlCenterController) { return state().open || state().tracking; }

CGPoint presentGestureLocation(SBControlCenterController) { return state().finger; }

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
            startTracking();
            break;
        case UIGestureRecognizer::changed:
            track(depth);
            break;
        case UIGestureRecognizer::ended:
            finishTracking(depth, pan.velocityInView(reference).y);
            break;
        default:
            if (state().tracking) close({});
    }
}

void beganPulling(SBControlCenterController, SBGrabberTongue, double distance, double) {
    startTracking();
    track(distance);
}

void updatedPulling(SBControlCenterController, SBGrabberTongue, double distance, double) {
    track(distance);
}

void endedPulling(SBControlCenterController, SBGrabberTongue, double distance, double velocity) {
    finishTracking(distance, velocity);
}

void canceledPulling(SBControlCenterController, SBGrabberTongue, double, double) {
    if (state().tracking) close({});
}

}  // namespace

SBControlCenterController controlCenter() {
    static auto& shared = *new Strong<SBControlCenterController>;
    if (!shared) shared = create<SBControlCenterController>();
    return shared;
}

bool controlCenterIsOpen() { return controlCenter() && state().open; }

void dismissControlCenter(bool animated) {
    if (controlCenterIsOpen()) {
        controlCenter().send<"dismissAnimated:completion:">(animated, BlockRef<void(bool)>());
    }
}

void setControlCenterFinger(CGPoint location) { state().finger = location; }

SBSystemPanGestureRecognizer statusBarPan() {
    CenterState& center = state();
    if (!center.statusBarPan) {
        center.statusBarView =
            create<UIView, "initWithFrame:">(rect(0, 0, screen().portrait.width, 44));
        addPart(windows().statusBar, center.statusBarView);
        center.statusBarPan = makeSystemPan(center.statusBarView);
    }
    return center.statusBarPan;
}

void registerControlCenter() {
    const auto manager =
        standIn<SBControlCenterController, Object, CenterState>()
            .classMethod<"sharedInstance", &sharedInstance>()
            .method<"presentAnimated:completion:", &present>()
            .method<"dismissAnimated:completion:", &dismiss>()
            .method<"isVisible", &isVisible>()
            .method<"_handleDismissTap:", &handleDismissTap>()
            .method<"_presentGestureLocationInView", &presentGestureLocation>()
            .method<"_handleStatusBarPullDownGesture:", &handleStatusBarPullDown>();
    answerPulls<SBControlCenterController, beganPulling, updatedPulling, endedPulling,
                canceledPulling>(manager);
}

}  // namespace simulator
