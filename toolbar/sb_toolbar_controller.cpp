#include "toolbar/sb_toolbar_controller.hpp"

#include "pages/spring.hpp"
#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"
#include "settings/settings_file.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/rubber_band.hpp"
#include "toolbar/sb_toolbar_layout.hpp"
#include "toolbar/sb_toolbar_state.hpp"

namespace vantori {

namespace {

using State = SBToolBarState;

constexpr double toolbarCornerRadius = 30;

// The single instance, apart from that of the superclass.
Strong<VNTSBToolBarController> instance;

VNTSBToolBarController sharedInstance(Class cls) {
    if (!instance) {
        Object raw = Object(classObject(cls)).send<"alloc", Object>();
        instance = adopted(raw.send<"init", VNTSBToolBarController>());
    }
    return instance;
}

bool sharedInstanceIfExisted(Class) { return bool(instance); }

bool answersYes(VNTSBToolBarController) { return true; }
bool answersNo(VNTSBToolBarController) { return false; }

bool isDark() {
    return UITraitCollection::current().userInterfaceStyle() == UITraitCollection::dark;
}

// Before iOS 13 there is one style, and the blur is dark.
long blurStyle() {
    return isSystem13OrLater() && !isDark() ? UIBlurEffect::light : UIBlurEffect::dark;
}

void createBlur(VNTSBToolBarController self, State& state) {
    const CGSize screen = screenSize();
    state.visualEffectView =
        create<UIVisualEffectView, "initWithEffect:">(UIBlurEffect::withStyle(blurStyle()));
    state.visualEffectView.setFrame(rect(0, 0, screen.width, screen.height));
    self.view().addSubview(state.visualEffectView);
    self.view().sendSubviewToBack(state.visualEffectView);
}

void createShadow(VNTSBToolBarController self, State& state) {
    const CGSize screen = screenSize();
    state.shadowView =
        create<VNTSBShadowView, "initWithFrame:">(rect(0, 0, screen.width, screen.height));
    state.shadowView.setBackgroundColor(UIColor::black());
    state.shadowView.setAlpha(0);
    auto tap = create<UITapGestureRecognizer, "initWithTarget:action:">(
        Object(self), selector<"tapBackgroundShadowView:">());
    state.shadowView.addGestureRecognizer(tap);
}

void loadView(VNTSBToolBarController self) {
    super<VNTSBToolBarController, "loadView">(self);
    State& state = stateOf<State>(self);
    // The blur comes from the visual effect view here, not from the inherited backdrop.
    self.backgroundWallpaperView().setHidden(true);
    self.backgroundWallpaperView().setAlpha(0);
    suggestPortraitHeight(self, currentLayoutDirection());
    self.view().setFrame(state.suggestedFrame);
    createShadow(self, state);
    observe(self, selector<"didChangeOritation">(), local::didRotate());
    observe(self, selector<"didChangeOritation">(), local::deviceOrientationDidChange());
}

void createUnplacedBackdrop(State& state) {
    state.backdropView = create<UIBackdropView, "initWithPrivateStyle:">(-2L);
    state.backdropView.setBlurRadiusSetOnce(false);
    state.backdropView.setBlurRadius(10);
}

void createModulesPage(VNTSBToolBarController self, State& state) {
    const double width = screenSize().width;
    const double height = state.suggestedY;
    UIScrollView scrollView = self.vantoriScrollView();
    scrollView.setFrame(rect(0, 0, width, height));
    scrollView.setContentSize({width, height});
    state.springBoardModules = create<VNTCCTogglesBarViewController>();
    state.springBoardModules.view().setAutoresizingMask(0);
    state.springBoardModules.view().setFrame(rect(width, 30, width, height - bandHeight));
    scrollView.addSubview(state.springBoardModules.view());
}

void viewDidLoad(VNTSBToolBarController self) {
    super<VNTSBToolBarController, "viewDidLoad">(self);
    State& state = stateOf<State>(self);
    self.view().layer().setCornerRadius(toolbarCornerRadius);
    self.view().setClipsToBounds(true);
    createUnplacedBackdrop(state);
    createBlur(self, state);
    auto pan = create<UIPanGestureRecognizer, "initWithTarget:action:">(
        Object(self), selector<"dragViewWithPanGesture:">());
    pan.setDelegate(self);
    self.view().addGestureRecognizer(pan);
    if (currentLayoutDirection() == directionStacked) createModulesPage(self, state);
}

void traitCollectionDidChange(VNTSBToolBarController self, Object previous) {
    super<VNTSBToolBarController, "traitCollectionDidChange:">(self, previous);
    if (!isSystem13OrLater()) return;
    State& state = stateOf<State>(self);
    state.visualEffectView.removeFromSuperview();
    createBlur(self, state);
}

void makeKeyWindow(VNTSBToolBarController self) {
    State& state = stateOf<State>(self);
    if (state.hostWindow) return;
    state.hostWindow = create<VNTSBHostWindow, "initWithFrame:">(UIScreen::mainScreen().bounds());
    VNTSBHostWindow window = state.hostWindow;
    // Made on a phone that has been turned already, it is turned as one that was there would be.
    turnHostWindow(window, state.orientation);
    window.setWindowLevel(toolbarWindowLevel);
    window.layer().setMasksToBounds(true);
    window.makeKeyAndVisible();
    UIView view = self.view();
    window.addSubview(state.shadowView);
    window.sendSubviewToBack(state.shadowView);
    window.addSubview(view);
    window.setRootViewController(self);
    self.updateYValue(screenLongSide());
    self.setIsEnabled(false);
}

void placeToolbar(VNTSBToolBarController self, double y) {
    UIView view = self.view();
    view.setFrame(rect(0, y, screenSize().width, view.frame().size.height));
}

void placeToolbarAndShadow(VNTSBToolBarController self, double y) {
    const double height = screenSize().height;
    placeToolbar(self, y);
    stateOf<State>(self).shadowView.setAlpha((height - y) / height * 0.5);
}

void updateYValue(VNTSBToolBarController self, double y) { placeToolbarAndShadow(self, y); }

void updateYValueWithAnimation(VNTSBToolBarController self, double y) {
    auto changes = block([toolbar = retained(self), y] { placeToolbarAndShadow(toolbar, y); });
    auto completion = emptyCompletion();
    animateWithSharedSpring(changes, completion);
}

// The first spring moves the shadow in both cases; the flag only decides whether the second does so
// too. Deliberate.
void updateYValueWithAnimationWithShadow(VNTSBToolBarController self, double y, bool withShadow) {
    self.updateYValueWithAnimation(y);
    if (withShadow) {
        self.updateYValueWithAnimation(y);
        return;
    }
    auto changes = block([toolbar = retained(self), y] { placeToolbar(toolbar, y); });
    auto completion = emptyCompletion();
    animateWithSharedSpring(changes, completion);
}

void dismissVNTSB(VNTSBToolBarController self) {
    post(local::stopMarquee());
    post(local::controlCenterBack());
    self.updateYValueWithAnimation(screenLongSide());
    self.setIsEnabled(false);
}

void tapBackgroundShadowView(VNTSBToolBarController self, UIGestureRecognizer) { self.dismiss(); }

// The swipe that the superclass installs stays in place and does nothing here. Deliberate.
void handleDismissGesture(VNTSBToolBarController, UIGestureRecognizer) {}

// A downward release of at least 15 points per second, or one in the lower half, dismisses.
bool shouldDismiss(double velocity, double fingerHeight, double height) {
    return velocity >= 15 || fingerHeight <= height * 0.5;
}

void followDrag(VNTSBToolBarController self, UIPanGestureRecognizer pan, UIView container,
                double y) {
    if (pan.state() == UIGestureRecognizer::began) {
        self.updateYValueWithAnimation(y);
    } else {
        self.updateYValue(y);
    }
    pan.setTranslation({0, 0}, container);
}

void releaseDrag(VNTSBToolBarController self, double velocity, double fingerHeight) {
    const double height = self.suggestedY();
    if (shouldDismiss(velocity, fingerHeight, height)) {
        self.dismiss();
        return;
    }
    self.updateYValueWithAnimation(screenSize().height - height);
    self.setIsEnabled(true);
}

void dragViewWithPanGesture(VNTSBToolBarController self, UIPanGestureRecognizer pan) {
    UIView container = self.view().superview();
    const double screenHeight = screenSize().height;
    const double fingerHeight = screenHeight - pan.locationInView(container).y;
    switch (pan.state()) {
        case UIGestureRecognizer::began:
        case UIGestureRecognizer::changed:
            followDrag(self, pan, container,
                       screenHeight - rubberBand(fingerHeight, self.suggestedY()));
            break;
        case UIGestureRecognizer::ended:
        case UIGestureRecognizer::cancelled:
            releaseDrag(self, pan.velocityInView(container).y, fingerHeight);
            break;
        default:
            break;
    }
}

void didChangeOrientation(VNTSBToolBarController self) {
    SpringBoard springBoard = SpringBoard::shared();
    const long orientation = springBoard.activeInterfaceOrientation();
    if (springBoard.frontMostApplication()) self.layoutForOrientation(orientation);
}

void orientationWillChange(VNTSBToolBarController self, long) {
    self.setShouldAllowAutoRotate(true);
}

void orientationDidChange(VNTSBToolBarController self, long orientation, double, long) {
    UIDevice::currentDevice().setOrientation(orientation, true);
    self.didChangeOrientation();
    self.layoutForOrientation(orientation);
    self.setShouldAllowAutoRotate(false);
}

unsigned long supportedInterfaceOrientations(VNTSBToolBarController) { return 30; }
// A second method, spelled so on purpose.
unsigned long supportedInterfaceOritations(VNTSBToolBarController) { return 2; }
long preferredOrientation(VNTSBToolBarController) { return orientationPortrait; }

void refreshLayoutForDirection(VNTSBToolBarController self, int direction) {
    super<VNTSBToolBarController, "refreshLayoutForDirection:">(self, direction);
    State& state = stateOf<State>(self);
    suggestPortraitHeight(self, direction);
    const bool strip = direction == directionStrip;
    state.springBoardModules.view().setAlpha(strip ? 0 : 1);
    if (!strip) {
        self.vantoriScrollView().setContentSize({2 * screenSize().width, self.maxHeight()});
    }
    self.scrollViewPageController().setAlpha(direction == directionStacked ? 0 : 1);
}

}  // namespace

void registerSBToolBarController() {
    define<VNTSBToolBarController, VNTToolBarController, State>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .classMethod<"sharedInstanceIfExisted", &sharedInstanceIfExisted>()
        .method<"_canShowWhileLocked", &answersYes>()
        .method<"loadView", &loadView>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"traitCollectionDidChange:", &traitCollectionDidChange>()
        .method<"makeKeyWindow", &makeKeyWindow>()
        .method<"updateYValue:", &updateYValue>()
        .method<"updateYValueWithAnimation:", &updateYValueWithAnimation>()
        .method<"updateYValueWithAnimation:withShadow:", &updateYValueWithAnimationWithShadow>()
        .method<"dismissVNTSB", &dismissVNTSB>()
        .method<"tapBackgroundShadowView:", &tapBackgroundShadowView>()
        .method<"handleDismissGesture:", &handleDismissGesture>()
        .method<"dragViewWithPanGesture:", &dragViewWithPanGesture>()
        .method<"didChangeOritation", &didChangeOrientation>()
        .method<"layoutForOritations:", &layoutForOrientation>()
        .method<"refreshLayoutForDirection:", &refreshLayoutForDirection>()
        .method<"activeInterfaceOrientationWillChangeToOrientation:", &orientationWillChange>()
        .method<
            "activeInterfaceOrientationDidChangeToOrientation:willAnimateWithDuration:"
            "fromOrientation:",
            &orientationDidChange>()
        .method<"shouldAutorotate", &answersNo>()
        .method<"supportedInterfaceOrientations", &supportedInterfaceOrientations>()
        .method<"supportedInterfaceOritations", &supportedInterfaceOritations>()
        .method<"preferredInterfaceOrientationForPresentation", &preferredOrientation>()
        .property<"vantoriHostWindow", &State::hostWindow>()
        .property<"backgroundBackdropView", &State::backdropView>()
        .property<"backgroundVisualEffectView", &State::visualEffectView>()
        .property<"backgroundShadowView", &State::shadowView>()
        .property<"suggestedFrame", &State::suggestedFrame>()
        .property<"suggestedY", &State::suggestedY>()
        .property<"shouldAllowAutoRotate", &State::shouldAllowAutoRotate>()
        .property<"ccTogglesViewController", &State::springBoardModules>();
}

}  // namespace vantori
