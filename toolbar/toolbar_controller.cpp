#include "toolbar/toolbar_controller.hpp"

#include "pages/lifted_scene.hpp"
#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"
#include "settings/settings_file.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/settings_reload.hpp"

namespace vantori {

namespace {

// The controller of one page, in the state of a toolbar.
template <class Row>
struct Held {
    Strong<typename Row::Controller> controller;
};

template <class Rows>
struct HeldPages;
template <class... Rows>
struct HeldPages<PageRows<Rows...>> : Held<Rows>... {
    void create() {
        ((Held<Rows>::controller = platform::create<typename Rows::Controller>()), ...);
    }
};

struct State {
    bool isEnabled;
    bool canToggleReachability;
    bool hasSetupConnectivityButtonSet;
    double maxHeight;
    Copied<NSArray> pages;
    Strong<UIScrollView> scrollView;
    Strong<UIPageControl> pageControl;
    HeldPages<PageTable> held;
    Strong<VNTCCTogglesBarViewController> modulesForApp;
    Strong<NSMutableArray> connectivityButtonControllers;
    Strong<UIView> grabber;
    Strong<UIView> multitaskGrabber;
    Strong<UIView> tint;
    Strong<SBWallpaperEffectView> backdrop;
    Strong<UISwipeGestureRecognizer> dismissRecognizer;
    Strong<UIView> baseView;
    Strong<UIWindow> baseWindow;
};

State& stateIn(VNTToolBarController self) { return stateOf<State>(self); }

template <class Row>
Strong<typename Row::Controller>& heldIn(State& state) {
    return static_cast<Held<Row>&>(state.held).controller;
}

template <class Controller>
Controller pageIn(State& state) {
    return heldIn<RowOf<Controller>>(state);
}

// The single instance; the subclass has one of its own.
Strong<VNTToolBarController> instance;

VNTToolBarController sharedInstance(Class cls) {
    if (!instance) {
        Object raw = Object(classObject(cls)).send<"alloc", Object>();
        instance = adopted(raw.send<"init", VNTToolBarController>());
    }
    return instance;
}

bool sharedInstanceIfExisted(Class) { return bool(instance); }

bool canShowWhileLocked(VNTToolBarController) { return true; }

double tintAlpha() {
    if (!isSystem13OrLater()) return 0.5;
    return UITraitCollection::current().userInterfaceStyle() == UITraitCollection::dark ? 0.5 : 0.1;
}

// A grabber bar: white, rounded.
Strong<UIView> createGrabber(CGRect frame, double alpha) {
    Strong<UIView> bar = create<UIView, "initWithFrame:">(frame);
    bar.setBackgroundColor(UIColor::white());
    bar.layer().setCornerRadius(2.5);
    bar.setClipsToBounds(true);
    bar.setAlpha(alpha);
    return bar;
}

CGRect backdropFrame(double height) {
    const CGSize screen = screenSize();
    return rect(0, height - screen.height, screen.width, screen.height);
}

void observeNotifications(VNTToolBarController self) {
    observeDarwin(darwin::refreshToggles(), &reloadPagesSettings);
    observeDarwin(darwin::reloadSettings(), &reloadControllerSettings);
    observe(self, selector<"lockScrollView">(), local::shouldLockScrollView());
    observe(self, selector<"unlockScrollView">(), local::shouldUnlockScrollView());
}

void createPages(State& state) {
    state.held.create();
    state.modulesForApp = create<VNTCCTogglesBarViewController>();
    pageIn<VNTBrightnessSliderContainerViewController>(state).setShouldShowSwitcher(false);
}

// The modules page stands beside the stacked pages only.
void showModulesPage(VNTCCTogglesBarViewController modules, int direction) {
    const bool stacked = direction == directionStacked;
    UIView view = modules.view();
    view.setAlpha(stacked ? 1 : 0);
    if (stacked) modules.scrollView().setFrame(view.bounds());
}

// Pages, the modules page and the height, without the frames of the containers.
void arrangePages(VNTToolBarController self, int direction) {
    placePages(self, direction);
    showModulesPage(stateIn(self).modulesForApp, direction);
    self.setMaxHeight(heightFor(self, direction));
}

// The pages keep the frames that they are given when the scroll view around them changes its size.
void fixPageSizes(VNTToolBarController self) {
    for (const Page& page : allPages()) page.controller(self).view().setAutoresizingMask(0);
}

void createWallpaperBackdrop(State& state, double height) {
    state.backdrop = create<SBWallpaperEffectView, "initWithWallpaperVariant:">(1L);
    state.backdrop.setStyle(7);
    state.backdrop.setFrame(backdropFrame(height));
}

void createTint(State& state) {
    state.tint = create<UIView, "initWithFrame:">(state.backdrop.bounds());
    state.tint.setBackgroundColor(UIColor::black());
    state.tint.setAlpha(tintAlpha());
    state.backdrop.setColorTintView(state.tint);
    state.backdrop.addSubview(state.tint);
}

void createGrabbers(State& state) {
    const CGSize screen = screenSize();
    state.grabber = createGrabber(grabberFrame(screen.width),
                                  grabberAlpha(boolSetting("hideGrabber"_ns, false)));
    state.multitaskGrabber =
        createGrabber(rect((screen.width - 30) / 2, (screen.height - 100) / 2 - 2.5, 30, 5), 0);
}

void createDismissRecognizer(VNTToolBarController self, State& state) {
    state.dismissRecognizer = create<UISwipeGestureRecognizer, "initWithTarget:action:">(
        Object(self), selector<"handleDismissGesture:">());
    state.dismissRecognizer.setDirection(UISwipeGestureRecognizer::down);
    self.view().addGestureRecognizer(state.dismissRecognizer);
}

void addSubviews(VNTToolBarController self, State& state) {
    UIView view = self.view();
    view.addSubview(state.backdrop);
    view.addSubview(state.scrollView);
    view.addSubview(state.grabber);
    state.backdrop.addSubview(state.multitaskGrabber);
    for (const Page& page : allPages()) state.scrollView.addSubview(page.controller(self).view());
}

void prepareScrollView(VNTToolBarController self, State& state, int direction) {
    state.scrollView.setShowsVerticalScrollIndicator(false);
    state.scrollView.setShowsHorizontalScrollIndicator(false);
    state.scrollView.setPagingEnabled(true);
    state.scrollView.setContentSize(contentSizeFor(self, direction, screenSize().width));
    state.scrollView.setDelegate(self);
}

void preparePageControl(VNTToolBarController self, State& state, int direction) {
    self.fixPageControl();
    state.pageControl.setCurrentPageIndicatorTintColor(UIColor::white());
    state.pageControl.setPageIndicatorTintColor(UIColor::rgba(0.5, 0.5, 0.5, 0.5));
    state.pageControl.setNumberOfPages(static_cast<long>(self.pages().count()));
    state.pageControl.setCurrentPage(0);
    self.view().addSubview(state.pageControl);
    state.pageControl.setAlpha(direction == directionStacked ? 0 : 1);
}

void loadView(VNTToolBarController self) {
    super<VNTToolBarController, "loadView">(self);
    State& state = stateIn(self);
    observeNotifications(self);
    self.setCanToggleReachability(true);
    self.setIsEnabled(false);
    createPages(state);
    self.setPages(fixedPageList());
    fixPageSizes(self);

    const int direction = currentLayoutDirection();
    arrangePages(self, direction);
    auto daily = pageIn<VNTDailyToolBarViewController>(state);
    daily.toggleContainerView().setFrame(daily.view().bounds());

    const CGSize screen = screenSize();
    state.scrollView =
        create<UIScrollView, "initWithFrame:">(rect(0, 0, screen.width, self.maxHeight()));
    state.pageControl = create<UIPageControl>();
    createWallpaperBackdrop(state, self.maxHeight());
    pageIn<VNTConnectivityBarViewController>(state).setUpConnectivityButtonSet();
    self.refreshLayoutForDirection(currentLayoutDirection());
    createTint(state);
    createGrabbers(state);
    createDismissRecognizer(self, state);
    addSubviews(self, state);
    prepareScrollView(self, state, direction);
    preparePageControl(self, state, direction);
}

void viewDidLoad(VNTToolBarController self) {
    super<VNTToolBarController, "viewDidLoad">(self);
    const CGSize screen = screenSize();
    self.view().setFrame(rect(0, screen.height - self.maxHeight(), screen.width, self.maxHeight()));
    self.fixPageControl();
}

// The frames of the scroll view and of the backdrop, which is as large as the screen and pushed up so
// that only its lowest points lie inside the toolbar.
void placeContainers(State& state, double height) {
    state.scrollView.setFrame(rect(0, 0, screenSize().width, height));
    state.backdrop.setFrame(backdropFrame(height));
}

void refreshLayoutForDirection(VNTToolBarController self, int direction) {
    State& state = stateIn(self);
    self.setMaxHeight(heightFor(self, direction));
    placeContainers(state, self.maxHeight());
    state.scrollView.setContentSize(contentSizeFor(self, direction, screenSize().width));
    showModulesPage(state.modulesForApp, direction);
    state.pageControl.setAlpha(direction == directionStacked ? 0 : 0.9);
    self.refreshAllPages();
}

// Leaves the content size as it is: the subclass widens it for the modules page.
void refreshAllPages(VNTToolBarController self) {
    State& state = stateIn(self);
    const int direction = currentLayoutDirection();
    self.setPages(fixedPageList());
    pageIn<VNTConnectivityBarViewController>(state).reloadTransform();
    arrangePages(self, direction);
    placeContainers(state, self.maxHeight());
    pageIn<VNTConnectivityBarViewController>(state).reloadTransformByDevices();
}

void fixPageControl(VNTToolBarController self) {
    UIPageControl pageControl = stateIn(self).pageControl;
    const double width = screenSize().width;
    const double margin = (width - 100) / 2;
    pageControl.setBackgroundColor(UIColor::clear());
    pageControl.setHidesForSinglePage(true);
    pageControl.setFrame(rect(margin, 100, width - 2 * margin, 10));
}

void setUpConnectivityButtonSet(VNTToolBarController self) {
    self.fixPageControl();
    pageIn<VNTConnectivityBarViewController>(stateIn(self)).setUpConnectivityButtonSet();
}

void layoutConnectivityButton(VNTToolBarController self) {
    pageIn<VNTConnectivityBarViewController>(stateIn(self)).layoutConnectivityButton();
}

void scrollViewDidEndDecelerating(VNTToolBarController self, UIScrollView scrollView) {
    const double width = scrollView.bounds().size.width;
    if (width <= 0) return;
    stateIn(self).pageControl.setCurrentPage(
        static_cast<long>(scrollView.contentOffset().x / width));
}

void traitCollectionDidChange(VNTToolBarController self, Object previous) {
    super<VNTToolBarController, "traitCollectionDidChange:">(self, previous);
    if (isSystem13OrLater()) stateIn(self).tint.setAlpha(tintAlpha());
}

void lockScrollView(VNTToolBarController self) { stateIn(self).scrollView.setScrollEnabled(false); }
void unlockScrollView(VNTToolBarController self) {
    stateIn(self).scrollView.setScrollEnabled(true);
}

// Exactly three levels: the touched view, its superview, and the superview of that.
bool isInSlider(UIView touched) {
    Class slider = objc_getClass("VNTSlider");
    UIView parent = touched.superview();
    return touched.isKindOfClass(slider) || parent.isKindOfClass(slider) ||
           parent.superview().isKindOfClass(slider);
}

bool shouldReceiveTouch(VNTToolBarController self, UIGestureRecognizer, Object touch) {
    const bool onSlider = isInSlider(touch.send<"view", UIView>());
    stateIn(self).scrollView.setScrollEnabled(!onSlider);
    return !onSlider;
}

// By the swipe: unlike a pull it leaves what plays scrolling, brings Control Center back, clears the flag
// once, and lets Reachability in again when the spring is done. Deliberate.
void closeApplicationToolbar(VNTToolBarController self) {
    post(local::controlCenterBack());
    auto rearm = block<void(bool)>([toolbar = retained(self)](bool finished) {
        if (finished) toolbar.setCanToggleReachability(true);
    });
    lowerLiftedScene(rearm);
    VNTToolBarController::shared().setIsEnabled(false);
    postDarwin(darwin::backNow());
}

void handleDismissGesture(VNTToolBarController self, UIGestureRecognizer) {
    closeApplicationToolbar(self);
}

template <class Row>
typename Row::Controller page(VNTToolBarController self) {
    return heldIn<Row>(stateIn(self));
}
template <class Row>
void setPage(VNTToolBarController self, typename Row::Controller controller) {
    heldIn<Row>(stateIn(self)) = retained(controller);
}

// The properties that hold the pages.
template <class... Rows>
void addPages(const auto& toolbar, PageRows<Rows...>) {
    (toolbar.template method<Rows::property, &page<Rows>>()
         .template method<setterName<Rows::property>(), &setPage<Rows>>(),
     ...);
}

}  // namespace

void showLevels(VNTToolBarController toolbar) {
    toolbar.page<VNTBrightnessSliderContainerViewController>().brightnessSlider().refreshValue();
    toolbar.page<VNTVolumeSliderContainerViewController>().volumeSlider().refreshValue();
}

void registerToolBarController() {
    const auto toolbar = define<VNTToolBarController, UIViewController, State>();
    addPages(toolbar, PageTable{});
    toolbar.classMethod<"sharedInstance", &sharedInstance>()
        .classMethod<"sharedInstanceIfExisted", &sharedInstanceIfExisted>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .method<"loadView", &loadView>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"refreshLayoutForDirection:", &refreshLayoutForDirection>()
        .method<"refreshAllPages", &refreshAllPages>()
        .method<"fixPageControl", &fixPageControl>()
        .method<"setUpConnectivityButtonSet", &setUpConnectivityButtonSet>()
        .method<"layoutConnectivityButton", &layoutConnectivityButton>()
        .method<"scrollViewDidEndDecelerating:", &scrollViewDidEndDecelerating>()
        .method<"traitCollectionDidChange:", &traitCollectionDidChange>()
        .method<"lockScrollView", &lockScrollView>()
        .method<"unlockScrollView", &unlockScrollView>()
        .method<"gestureRecognizer:shouldReceiveTouch:", &shouldReceiveTouch>()
        .method<"handleDismissGesture:", &handleDismissGesture>()
        .property<"isEnabled", &State::isEnabled>()
        .property<"canToggleReachability", &State::canToggleReachability>()
        .property<"hasSetupConnectivityButtonSet", &State::hasSetupConnectivityButtonSet>()
        .property<"maxHeight", &State::maxHeight>()
        .property<"pages", &State::pages>()
        .property<"vantoriScrollView", &State::scrollView>()
        .property<"scrollViewPageController", &State::pageControl>()
        .property<"ccTogglesViewControllerForApp", &State::modulesForApp>()
        .property<"connectivityButtonControllers", &State::connectivityButtonControllers>()
        .property<"grabberView", &State::grabber>()
        .property<"multitaskGrabberView", &State::multitaskGrabber>()
        .property<"tintColorView", &State::tint>()
        .property<"backgroundWallpaperView", &State::backdrop>()
        .property<"dismissGestureRecognizer", &State::dismissRecognizer>()
        .property<"baseView", &State::baseView>()
        .property<"baseWindow", &State::baseWindow>();
}

}  // namespace vantori
