// The two toolbars: arrangement, geometry, dismissal, dragging, orientation. W = 375, H = 812.
#include <cmath>

#include "toolbar/sb_toolbar_controller.hpp"

#include "pages/lifted_scene.hpp"
#include "platform/definition.hpp"
#include "simulator/runtime/journal.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"
#include "toolbar/arrangement.hpp"

namespace vantori::tests {
namespace {

class Toolbar : public LibraryPhone {
  protected:
    void bootWithDirection(int direction) {
        set("layoutDirection", direction);
        boot();
    }
    static VNTToolBarController app() { return VNTToolBarController::shared(); }
    static VNTSBToolBarController sb() { return VNTSBToolBarController::shared(); }
    static UIView shadow() { return sb().send<"backgroundShadowView", UIView>(); }
    static CGRect frameOf(UIViewController page) { return page.view().frame(); }
    static double alphaOf(UIViewController page) { return page.view().alpha(); }
    void openToolbar() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
    }
    // Of all pages side by side.
    static double widthOfAll() { return 375 * static_cast<double>(app().pages().count()); }
    static void expectPages(VNTToolBarController toolbar, CGRect first, double dx, double dy) {
        UIViewController pages[] = {toolbar.page<VNTConnectivityBarViewController>(),
                                    toolbar.page<VNTMediaPlayerViewController>(),
                                    toolbar.page<VNTBrightnessSliderContainerViewController>(),
                                    toolbar.page<VNTVolumeSliderContainerViewController>(),
                                    toolbar.page<VNTIconsContainerViewController>()};
        for (int i = 0; i < 5; ++i) {
            CGRect expected = first;
            expected.origin.x += dx * i;
            expected.origin.y += dy * i;
            EXPECT_EQ(frameOf(pages[i]), expected) << "page " << i;
            EXPECT_EQ(alphaOf(pages[i]), 1) << "page " << i;
        }
        EXPECT_EQ(alphaOf(toolbar.page<VNTDailyToolBarViewController>()), 0);
    }
};

TEST_F(Toolbar, TheTwoAreDifferentInstancesOfTheirClasses) {
    boot();
    EXPECT_FALSE(app() == sb());
    EXPECT_TRUE(sb().isKindOfClass(objc_getClass("VNTToolBarController")));
    EXPECT_FALSE(app().isKindOfClass(objc_getClass("VNTSBToolBarController")));
    EXPECT_TRUE((app().send<"_canShowWhileLocked", bool>()));
    EXPECT_TRUE((sb().send<"_canShowWhileLocked", bool>()));
}

TEST_F(Toolbar, StacksItsPagesWithoutASetting) {
    boot();
    EXPECT_EQ(app().maxHeight(), 515);
    expectPages(app(), rect(0, 15, 375, 100), 0, 100);
    EXPECT_EQ(app().vantoriScrollView().frame(), (rect(0, 0, 375, 515)));
    EXPECT_EQ(app().vantoriScrollView().contentSize(), (CGSize{375, 515}));
    EXPECT_EQ(app().backgroundWallpaperView().frame(), (rect(0, 515 - 812, 375, 812)));
    EXPECT_EQ(app().scrollViewPageController().alpha(), 0);
    EXPECT_EQ(alphaOf(app().ccTogglesViewControllerForApp()), 1);
    EXPECT_EQ(app().view().frame(), (rect(0, 297, 375, 515)));
}

class SideBySide : public Toolbar, public testing::WithParamInterface<int> {};

TEST_P(SideBySide, ForEveryOtherDirection) {
    bootWithDirection(GetParam());
    EXPECT_EQ(app().maxHeight(), 115);
    expectPages(app(), rect(0, 15, 375, 100), 375, 0);
    EXPECT_EQ(app().vantoriScrollView().contentSize(), (CGSize{widthOfAll(), 115}));
    EXPECT_EQ(app().backgroundWallpaperView().frame(), (rect(0, 115 - 812, 375, 812)));
    EXPECT_EQ(app().scrollViewPageController().alpha(), 1);
    EXPECT_EQ(alphaOf(app().ccTogglesViewControllerForApp()), 0);
    app().refreshLayoutForDirection(GetParam());
    EXPECT_NEAR(app().scrollViewPageController().alpha(), 0.9, 1e-6);
    EXPECT_EQ(app().maxHeight(), 115);
    EXPECT_EQ(sb().maxHeight(), 115);
    // The height test is for 1, the arrangement test for 3.
    EXPECT_EQ(sb().suggestedY(), GetParam() == 1 ? 115 : stackedHeight(sb()));
    EXPECT_FALSE(sb().ccTogglesViewController());
}

// For 0 and 2 the toolbar above is as high as a stack, and its content two screens wide; the one
// behind applications lays its strip out for every number but 3.
TEST_P(SideBySide, TheTwoControllersAfterASettingsChange) {
    bootWithDirection(GetParam());
    announceSettings();
    const bool strip = GetParam() == 1;
    const double height = strip ? 115 : stackedHeight(sb());
    EXPECT_EQ(app().vantoriScrollView().contentSize(), (CGSize{widthOfAll(), 115}));
    EXPECT_EQ(sb().vantoriScrollView().contentSize(), (CGSize{strip ? widthOfAll() : 750.0, 115}));
    EXPECT_NEAR(app().scrollViewPageController().alpha(), 0.9, 1e-6);
    EXPECT_EQ(sb().scrollViewPageController().alpha(), 1);
    EXPECT_EQ(sb().suggestedY(), height);
    EXPECT_EQ((sb().send<"suggestedFrame", CGRect>()), (rect(0, 812, 375, height)));
    expectPages(app(), rect(0, 15, 375, 100), 375, 0);
    expectPages(sb(), rect(0, 15, 375, 100), 375, 0);
    EXPECT_EQ(app().view().frame(), (rect(0, 697, 375, 115)));
}

INSTANTIATE_TEST_SUITE_P(Directions, SideBySide, testing::Values(0, 1, 2));

struct TouchState {
    UIView view;
};
struct Touch : Object {
    static constexpr FixedString name{"VNTTestTouch"};
    using Object::Object;
};

// A touch on a slider, or on what lies one or two levels inside it, does not move the toolbar.
class TouchInSlider : public Toolbar, public testing::WithParamInterface<int> {};

TEST_P(TouchInSlider, IsLookedForThreeLevelsUp) {
    boot();
    const Strong<UIView> slider = retained<UIView>(
        sb().page<VNTBrightnessSliderContainerViewController>().brightnessSlider());
    UIView touched = slider;
    for (int level = 0; level < GetParam(); ++level) {
        auto inner = create<UIView, "initWithFrame:">(rect(0, 0, 10, 10));
        touched.addSubview(inner);
        touched = inner;
    }
    define<Touch, Object, TouchState>().property<"view", &TouchState::view>();
    auto touch = create<Touch>();
    touch.send<"setView:">(touched);
    const bool moves = GetParam() > 2;
    sb().vantoriScrollView().setScrollEnabled(!moves);
    EXPECT_EQ((sb().send<"gestureRecognizer:shouldReceiveTouch:", bool>(Object(), Object(touch))),
              moves);
    EXPECT_EQ((sb().vantoriScrollView().send<"isScrollEnabled", bool>()), moves);
}

TEST_F(Toolbar, ATouchOnAViewThatIsInNothingMovesIt) {
    boot();
    define<Touch, Object, TouchState>().property<"view", &TouchState::view>();
    auto alone = create<UIView>();
    auto touch = create<Touch>();
    touch.send<"setView:">(alone);
    EXPECT_TRUE(
        (sb().send<"gestureRecognizer:shouldReceiveTouch:", bool>(Object(), Object(touch))));
}

INSTANTIATE_TEST_SUITE_P(Levels, TouchInSlider, testing::Values(0, 1, 2, 3));

// The page's bounds shrink to the strip about the middle of the screen: (812 - 100) / 2 = 356.
TEST_F(Toolbar, TheEverydayPageKeepsItsFirstFrame) {
    boot();
    const CGRect first = frameOf(app().page<VNTDailyToolBarViewController>());
    EXPECT_EQ(first, (rect(0, 356, 375, 100)));
    set("layoutDirection", 1);
    announceSettings();
    EXPECT_EQ(frameOf(app().page<VNTDailyToolBarViewController>()), first);
    EXPECT_EQ(alphaOf(app().page<VNTDailyToolBarViewController>()), 0);
}

TEST_F(Toolbar, FixedViews) {
    boot();
    UIView grabber = app().grabberView();
    EXPECT_EQ(grabber.frame(), (rect(137.5, 10, 100, 5)));
    EXPECT_EQ(grabber.layer().cornerRadius(), 2.5);
    EXPECT_EQ(grabber.alpha(), 0.5);
    UIView second = app().send<"multitaskGrabberView", UIView>();
    EXPECT_EQ(second.frame(), (rect(172.5, 353.5, 30, 5)));
    EXPECT_EQ(second.alpha(), 0);
    EXPECT_EQ(second.superview(), app().backgroundWallpaperView());
    EXPECT_EQ(app().tintColorView().frame(), (rect(0, 0, 375, 812)));
    EXPECT_NEAR(app().tintColorView().alpha(), 0.1, 1e-6);
    EXPECT_EQ(app().scrollViewPageController().frame(), (rect(137.5, 100, 100, 10)));
    EXPECT_EQ((app().scrollViewPageController().send<"numberOfPages", long>()), 5);
}

TEST_F(Toolbar, TheTintFollowsTheStyle) {
    boot();
    sb().makeKeyWindow();
    phone_->appearance(true);
    EXPECT_EQ(app().tintColorView().alpha(), 0.5);
    EXPECT_EQ(sb().tintColorView().alpha(), 0.5);
    phone_->appearance(false);
    EXPECT_NEAR(app().tintColorView().alpha(), 0.1, 1e-6);
}

TEST_F(Toolbar, BeforeSystem13TheTintIsDark) {
    phone_->system("12.4");
    boot();
    EXPECT_EQ(app().tintColorView().alpha(), 0.5);
}

TEST_F(Toolbar, ScrollingEndsOnThePageThatIsWhole) {
    bootWithDirection(1);
    UIScrollView scrollView = app().vantoriScrollView();
    scrollView.send<"setContentOffset:">(CGPoint{2.7 * 375, 0});
    app().send<"scrollViewDidEndDecelerating:">(scrollView);
    EXPECT_EQ((app().scrollViewPageController().send<"currentPage", long>()), 2);
}

// Without a width there is no telling where it ended; one of a point is one.
TEST_F(Toolbar, ScrollingWithoutAWidthLeavesTheDots) {
    boot();
    auto dots = [] { return app().scrollViewPageController().send<"currentPage", long>(); };
    auto scrolled = [](double width, double x) {
        auto view = create<UIScrollView, "initWithFrame:">(rect(0, 0, width, 10));
        view.setContentOffset({x, 0});
        app().send<"scrollViewDidEndDecelerating:">(Object(view.get()));
    };
    scrolled(1, 2);
    EXPECT_EQ(dots(), 2);
    scrolled(0, 0);
    EXPECT_EQ(dots(), 2);
}

TEST_F(Toolbar, APageCanBeExchanged) {
    boot();
    auto page = create<VNTMediaPlayerViewController>();
    app().send<"setMediaPlayerViewController:">(Object(page.get()));
    EXPECT_EQ(app().page<VNTMediaPlayerViewController>(), page);
}

// From back to front.
TEST_F(Toolbar, ItsPartsLieInOrder) {
    boot();
    NSArray views = app().view().subviews();
    const auto place = [views](UIView view) {
        return views.send<"indexOfObject:", unsigned long>(view);
    };
    const unsigned long backdrop = place(app().backgroundWallpaperView());
    const unsigned long pages = place(app().vantoriScrollView());
    const unsigned long grabber = place(app().grabberView());
    EXPECT_LT(backdrop, pages);
    EXPECT_LT(pages, grabber);
    EXPECT_LT(grabber, views.count());
}

TEST_F(Toolbar, TheScrollLockFollowsItsNotifications) {
    boot();
    auto scrolls = [](VNTToolBarController t) {
        return t.vantoriScrollView().send<"isScrollEnabled", bool>();
    };
    phone_->post("should-lock-ScrollView");
    EXPECT_FALSE(scrolls(app()));
    EXPECT_FALSE(scrolls(sb()));
    phone_->post("should-unlock-ScrollView");
    EXPECT_TRUE(scrolls(app()));
    EXPECT_TRUE(scrolls(sb()));
}

TEST_F(Toolbar, TheDismissSwipeLowersTheApplicationAndRearmsWhenItFinished) {
    set("alwaysSpringBoardStyle", false);
    bootWithDirection(1);
    phone_->open("com.example.notes");
    openToolbar();
    ASSERT_TRUE(app().isEnabled());
    app().setCanToggleReachability(false);
    phone_->clear();
    app().send<"handleDismissGesture:">(Object());
    EXPECT_FALSE(app().isEnabled());
    EXPECT_EQ(sceneContainer().frame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ(sceneContainer().layer().cornerRadius(), 0);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
    EXPECT_FALSE(app().canToggleReachability());
    phone_->wait(0.6);
    EXPECT_TRUE(app().canToggleReachability());
    EXPECT_EQ(phone_->darwinPostedCount("com.ferolin.vantori.Back-Now"), 1);
}

// The scene is lowered, the toolbar counts as closed, and then others hear of it.
TEST_F(Toolbar, TheDismissSwipeGoesInOrder) {
    set("alwaysSpringBoardStyle", false);
    bootWithDirection(1);
    phone_->open("com.example.notes");
    openToolbar();
    phone_->clear();
    double top = -1;
    long heard = -1;
    Spy<"setIsEnabled:", bool>::on("VNTToolBarController", [&](Object, bool) {
        top = sceneContainer().frame().origin.y;
        heard = phone_->darwinPostedCount("com.ferolin.vantori.Back-Now");
    });
    app().send<"handleDismissGesture:">(Object());
    EXPECT_EQ(top, 0);
    EXPECT_EQ(heard, 0);
}

TEST_F(Toolbar, AnInterruptedDismissalDoesNotRearm) {
    set("alwaysSpringBoardStyle", false);
    bootWithDirection(1);
    phone_->open("com.example.notes");
    openToolbar();
    app().setCanToggleReachability(false);
    app().send<"handleDismissGesture:">(Object());
    phone_->wait(0.1);
    phone_->interrupt(sceneContainer().get());
    phone_->wait(1);
    EXPECT_FALSE(app().canToggleReachability());
}

TEST_F(Toolbar, InSpringBoardTheSwipeDoesNothing) {
    bootWithDirection(1);
    openToolbar();
    phone_->clear();
    sb().send<"handleDismissGesture:">(Object());
    EXPECT_TRUE(sb().isEnabled());
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 0);
}

TEST_F(Toolbar, TheWindowIsMadeOnceAndSizesTheView) {
    boot();
    EXPECT_EQ(sb().view().frame().size.height, sb().suggestedY());
    sb().makeKeyWindow();
    VNTSBHostWindow window = sb().vantoriHostWindow();
    ASSERT_TRUE(window);
    EXPECT_EQ((window.send<"windowLevel", double>()), 1070);
    EXPECT_TRUE(window.layer().masksToBounds());
    EXPECT_EQ(window.subviews().at(0), shadow());
    EXPECT_EQ(sb().view().frame(), (rect(0, 812, 375, 812)));
    EXPECT_EQ(shadow().alpha(), 0);
    EXPECT_FALSE(sb().isEnabled());
    EXPECT_TRUE((window.send<"_isSecure", bool>()));
    EXPECT_TRUE((sendClass<VNTSBHostWindow, "_isSecure", bool>()));
    sb().setIsEnabled(true);
    sb().updateYValue(297);
    phone_->clear();
    sb().makeKeyWindow();
    EXPECT_EQ(sb().vantoriHostWindow(), window);
    EXPECT_TRUE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, 297);
    EXPECT_EQ(window.subviews().count(), 2u);
    EXPECT_EQ(phone_->calledCount("UIWindow", "makeKeyAndVisible"), 0);
}

TEST_F(Toolbar, ADismissalStopsTheMarqueeBeforeControlCenterIsBack) {
    bootWithDirection(1);
    openToolbar();
    listenTo({"com.ferolin.vantori-stopmarquee", "com.ferolin.vantori-ccback"});
    std::vector<bool> openThen;
    Order::look() = [&] { openThen.push_back(sb().isEnabled()); };
    sb().dismiss();
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"com.ferolin.vantori-stopmarquee",
                                                         "com.ferolin.vantori-ccback"}));
    EXPECT_EQ(openThen, (std::vector<bool>{true, true}));
    EXPECT_FALSE(sb().isEnabled());
    Order::look() = {};
}

// Posted while it is up, moved while it counts as open.
TEST_F(Toolbar, ADismissalMovesItBeforeItCountsAsClosed) {
    bootWithDirection(1);
    openToolbar();
    double top = -1;
    bool isOpen = false;
    listenTo({"com.ferolin.vantori-ccback"});
    Order::look() = [&] { top = sb().view().frame().origin.y; };
    Spy<"updateYValueWithAnimation:", double>::on(
        "VNTSBToolBarController", [&](Object, double) { isOpen = sb().isEnabled(); });
    sb().dismiss();
    EXPECT_EQ(top, 812 - 115);
    EXPECT_TRUE(isOpen);
    Order::look() = {};
}

struct BlurOn {
    const char* system;
    bool dark;
    long style;  // light 1, dark 2
};
class BlurStyle : public Toolbar, public testing::WithParamInterface<BlurOn> {
  protected:
    static long style() {
        return sb()
            .send<"backgroundVisualEffectView", UIView>()
            .send<"effect", Object>()
            .send<"_style", long>();
    }
};

// Before iOS 13 there is one style, and the blur is dark.
TEST_P(BlurStyle, FollowsTheInterface) {
    phone_->system(GetParam().system);
    boot();
    EXPECT_EQ(style(), std::string(GetParam().system) == "12.4" ? 2 : 1);
    sb().makeKeyWindow();
    phone_->appearance(GetParam().dark);
    EXPECT_EQ(style(), GetParam().style);
}

INSTANTIATE_TEST_SUITE_P(Systems, BlurStyle,
                         testing::Values(BlurOn{"12.4", false, 2}, BlurOn{"13.3", false, 1},
                                         BlurOn{"13.3", true, 2}, BlurOn{"14.2", true, 2}));

// With nothing in front the answer of the device alone changes nothing.
TEST_F(Toolbar, ATurnIsFollowedOnlyInFrontOfAnApplication) {
    boot();
    sb().makeKeyWindow();
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    sb().layoutForOrientation(1);
    const double stack = stackedHeight(sb());
    ASSERT_EQ(sb().suggestedY(), stack);
    for (const char* post :
         {"com.ferolin.vantori.did-rotated", "UIDeviceOrientationDidChangeNotification"}) {
        phone_->post(post);
        EXPECT_EQ(sb().suggestedY(), stack) << post;
    }
    phone_->open("com.example.notes");
    phone_->wait(1);
    for (const char* post :
         {"com.ferolin.vantori.did-rotated", "UIDeviceOrientationDidChangeNotification"}) {
        sb().layoutForOrientation(1);
        phone_->post(post);
        EXPECT_EQ(sb().suggestedY(), 215) << post;
    }
}

TEST_F(Toolbar, TheShadowFollowsTheHeight) {
    boot();
    sb().makeKeyWindow();
    sb().updateYValue(812);
    EXPECT_EQ(shadow().alpha(), 0);
    sb().updateYValue(0);
    EXPECT_EQ(shadow().alpha(), 0.5);
    sb().updateYValue(297);
    EXPECT_NEAR(shadow().alpha(), (812 - 297.0) / 812 * 0.5, 1e-6);
}

TEST_F(Toolbar, TheSpringMovesViewAndShadow) {
    boot();
    sb().makeKeyWindow();
    sb().send<"updateYValueWithAnimation:withShadow:">(297.0, false);
    EXPECT_EQ(sb().view().frame(), (rect(0, 297, 375, 812)));
    EXPECT_NEAR(shadow().alpha(), (812 - 297.0) / 812 * 0.5, 1e-6);
    phone_->wait(0.6);
    sb().send<"updateYValueWithAnimation:withShadow:">(697.0, true);
    EXPECT_NEAR(shadow().alpha(), 115.0 / 812 * 0.5, 1e-6);
    EXPECT_EQ(phone_->calledCount("UIView",
                                  "animateWithDuration:delay:usingSpringWithDamping:"
                                  "initialSpringVelocity:options:animations:completion:"),
              4);
}

// Half a second, at once, damped by 0.6, from 0.3, without options.
TEST_F(Toolbar, TheSpringIsTheOneThatAllShare) {
    boot();
    sb().makeKeyWindow();
    sb().updateYValueWithAnimation(297);
    const auto spring = simulator::Journal::last(
        "UIView",
        "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:"
        "animations:completion:");
    ASSERT_TRUE(spring);
    const double expected[] = {0.5, 0, 0.6, 0.3};
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_NEAR(std::get<double>(spring->at(i)), expected[i], 1e-6) << i;
    EXPECT_EQ(std::get<long>(spring->at(4)), 0);
}

// With its shadow the second spring is the first once more.
TEST_F(Toolbar, TheFlagDecidesAboutTheSecondSpring) {
    boot();
    sb().makeKeyWindow();
    int springs = 0;
    Spy<"updateYValueWithAnimation:", double>::on("VNTSBToolBarController",
                                                  [&](Object, double) { ++springs; });
    sb().send<"updateYValueWithAnimation:withShadow:">(297.0, false);
    EXPECT_EQ(springs, 1);
    sb().send<"updateYValueWithAnimation:withShadow:">(297.0, true);
    EXPECT_EQ(springs, 3);
}

TEST_F(Toolbar, OnlyAStackUprightShowsTheModulesPage) {
    boot();
    UIViewController modules = sb().ccTogglesViewController();
    ASSERT_TRUE(modules);
    sb().layoutForOrientation(3);
    EXPECT_EQ(alphaOf(modules), 0);
    sb().layoutForOrientation(1);
    EXPECT_EQ(alphaOf(modules), 1);
    set("layoutDirection", 1);
    sb().layoutForOrientation(1);
    EXPECT_EQ(alphaOf(modules), 0);
}

TEST_F(Toolbar, TheContentIsTwoScreensWideOnlyAfterASettingsChange) {
    boot();
    auto width = [] { return sb().vantoriScrollView().contentSize().width; };
    EXPECT_EQ(width(), 375);
    announceSettings();
    EXPECT_EQ(width(), 750);
    EXPECT_EQ(app().vantoriScrollView().contentSize().width, 375);
    sb().refreshAllPages();
    EXPECT_EQ(width(), 750);
    sb().layoutForOrientation(1);
    EXPECT_EQ(width(), 375);
}

TEST_F(Toolbar, TheModulesPageStandsOnTheSecondScreen) {
    boot();
    EXPECT_EQ(frameOf(sb().ccTogglesViewController()), (rect(375, 30, 375, 500)));
    sb().layoutForOrientation(1);
    EXPECT_EQ(frameOf(sb().ccTogglesViewController()), (rect(375, 30, 375, 485)));
    EXPECT_EQ(sb().ccTogglesViewController().scrollView().frame(), (rect(0, 0, 375, 485)));
}

TEST_F(Toolbar, TheLookInSpringBoard) {
    boot();
    EXPECT_EQ(sb().view().layer().cornerRadius(), 30);
    EXPECT_TRUE(sb().view().layer().masksToBounds());
    EXPECT_TRUE(sb().backgroundWallpaperView().isHidden());
    EXPECT_EQ(sb().backgroundWallpaperView().alpha(), 0);
    UIView blur = sb().send<"backgroundVisualEffectView", UIView>();
    EXPECT_EQ(sb().view().subviews().at(0), blur);
    UIView backdrop = sb().send<"backgroundBackdropView", UIView>();
    EXPECT_TRUE(backdrop);
    EXPECT_FALSE(backdrop.superview());
}

TEST_F(Toolbar, AWindowMadeInTheDarkIsToldSo) {
    boot();
    phone_->appearance(true);
    sb().makeKeyWindow();
    phone_->wait(0.1);
    EXPECT_EQ(sb().tintColorView().alpha(), 0.5);
}

TEST_F(Toolbar, AChangeOfStyleMakesANewBlur) {
    boot();
    sb().makeKeyWindow();
    auto blur = [] { return retained(sb().send<"backgroundVisualEffectView", UIView>()); };
    auto before = blur();
    phone_->appearance(true);
    EXPECT_FALSE(blur() == before);
    EXPECT_FALSE(before.superview());
    EXPECT_EQ(sb().view().subviews().at(0), blur());
    EXPECT_EQ(blur().frame(), (rect(0, 0, 375, 812)));
}

TEST_F(Toolbar, ATapOnTheShadowDismisses) {
    bootWithDirection(1);
    openToolbar();
    phone_->touchDown(200, 300);
    phone_->wait(0.05);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_FALSE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, 812);
    EXPECT_EQ(shadow().alpha(), 0);
}

TEST_F(Toolbar, DraggedBeyondItsHeightItResists) {
    boot();
    openToolbar();
    const double height = sb().suggestedY(), top = 812 - height, finger = top - 85;
    phone_->touchDown(187, top + 8);
    phone_->touchMove(187, finger, 0.3);
    const double resisted = 85 / ((height + 85) / height);
    EXPECT_NEAR(sb().view().frame().origin.y, top - resisted, 1e-6);
    phone_->touchMove(187, finger, 0.3);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_TRUE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, top);
}

TEST_F(Toolbar, ReleasedInItsLowerHalfItGoes) {
    boot();
    openToolbar();
    const double height = sb().suggestedY(), finger = 812 - 0.4 * height;
    phone_->touchDown(187, 812 - height + 8);
    phone_->touchMove(187, finger, 0.3);
    phone_->touchMove(187, finger, 0.3);  // at rest
    phone_->touchUp();
    EXPECT_FALSE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, 812);
}

// A recogniser that says what the test wants.
struct FakePanState {
    long state;
    CGPoint location, velocity, translation;
};
struct FakePan : UIPanGestureRecognizer {
    static constexpr FixedString name{"VNTTestPan"};
    using UIPanGestureRecognizer::UIPanGestureRecognizer;
};
CGPoint locationOf(FakePan pan, UIView) { return stateOf<FakePanState>(pan).location; }
CGPoint velocityOf(FakePan pan, UIView) { return stateOf<FakePanState>(pan).velocity; }
void setTranslation(FakePan pan, CGPoint translation, UIView) {
    stateOf<FakePanState>(pan).translation = translation;
}
void registerFakePan() {
    define<FakePan, Object, FakePanState>()
        .property<"state", &FakePanState::state>()
        .method<"locationInView:", &locationOf>()
        .method<"velocityInView:", &velocityOf>()
        .method<"setTranslation:inView:", &setTranslation>();
}

class Drag : public Toolbar {
  protected:
    void release(double velocity, double fingerHeight, long state = 3) {
        registerFakePan();
        auto pan = create<FakePan>();
        auto& fake = stateOf<FakePanState>(pan);
        fake.state = state;
        fake.location = {100, 812 - fingerHeight};
        fake.velocity = {0, velocity};
        fake.translation = {7, 7};
        sb().send<"dragViewWithPanGesture:">(Object(pan.get()));
        translation_ = fake.translation;
    }
    CGPoint translation_{};
};

// The first report springs, later ones follow at once; either takes the translation back.
TEST_F(Drag, SpringsToTheFingerAndThenFollowsIt) {
    boot();
    openToolbar();
    std::vector<double> springs;
    Spy<"updateYValueWithAnimation:", double>::on("VNTSBToolBarController",
                                                  [&](Object, double y) { springs.push_back(y); });
    release(0, 100, 1);
    EXPECT_EQ(springs, (std::vector<double>{712}));
    EXPECT_EQ(translation_, (CGPoint{0, 0}));
    release(0, 90, 2);
    EXPECT_EQ(springs.size(), 1u);
    EXPECT_EQ(sb().view().frame().origin.y, 722);
    EXPECT_EQ(translation_, (CGPoint{0, 0}));
}

TEST_F(Drag, SpringsBackBeforeItCountsAsOpen) {
    boot();
    openToolbar();
    sb().setIsEnabled(false);
    std::vector<bool> opens;
    Spy<"updateYValueWithAnimation:", double>::on(
        "VNTSBToolBarController", [&](Object, double) { opens.push_back(sb().isEnabled()); });
    release(0, 500);
    EXPECT_EQ(opens, (std::vector<bool>{false}));
    EXPECT_TRUE(sb().isEnabled());
}

TEST_F(Drag, ReleasedAtExactly15ItGoes) {
    boot();
    openToolbar();
    release(15, 500);
    EXPECT_FALSE(sb().isEnabled());
}

TEST_F(Drag, ReleasedJustBelow15InTheUpperHalfItSpringsBack) {
    boot();
    openToolbar();
    sb().setIsEnabled(false);
    release(14.9, 500);
    EXPECT_TRUE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, 812 - sb().suggestedY());
}

TEST_F(Drag, ReleasedAtExactlyHalfItGoes) {
    boot();
    openToolbar();
    release(0, sb().suggestedY() / 2);
    EXPECT_FALSE(sb().isEnabled());
}

TEST_F(Drag, CancelledIsARelease) {
    boot();
    openToolbar();
    release(0, 100, 4);
    EXPECT_FALSE(sb().isEnabled());
}

TEST_F(Drag, OtherStatesChangeNothing) {
    boot();
    openToolbar();
    release(100, 100, 5);
    EXPECT_TRUE(sb().isEnabled());
    EXPECT_EQ(sb().view().frame().origin.y, 812 - sb().suggestedY());
}

struct Turned {
    long orientation;
    double angle;
};
class HostWindowFor : public Toolbar, public testing::WithParamInterface<Turned> {};

// Turned by a quarter, the frame (0, 0, H, W) of the window has bounds of W by H.
TEST_P(HostWindowFor, TurnsWithTheInterface) {
    boot();
    sb().makeKeyWindow();
    sb().layoutForOrientation(GetParam().orientation);
    UIWindow window = sb().vantoriHostWindow();
    const auto transform = window.send<"transform", CGAffineTransform>();
    EXPECT_NEAR(transform.a, std::cos(GetParam().angle), 1e-12);
    EXPECT_NEAR(transform.b, std::sin(GetParam().angle), 1e-12);
    const CGRect frame = window.frame();
    const bool portrait = GetParam().orientation == 1;
    EXPECT_NEAR(frame.size.width, portrait ? 375 : 812, 1e-9);
    EXPECT_NEAR(frame.size.height, portrait ? 812 : 375, 1e-9);
    EXPECT_NEAR(frame.origin.x, 0, 1e-9);
    EXPECT_NEAR(frame.origin.y, 0, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Orientations, HostWindowFor,
                         testing::Values(Turned{1, 0}, Turned{3, M_PI / 2},
                                         Turned{4, 3 * M_PI / 2}));

TEST_F(Toolbar, UpsideDownLeavesTheWindowAndLaysOutTheGrid) {
    boot();
    sb().makeKeyWindow();
    sb().layoutForOrientation(2);
    EXPECT_EQ(sb().vantoriHostWindow().frame(), (rect(0, 0, 375, 812)));
    // s = 375, l = 812, x0 = 31.
    EXPECT_EQ(frameOf(sb().page<VNTConnectivityBarViewController>()), (rect(31, 15, 375, 100)));
    EXPECT_EQ(frameOf(sb().page<VNTVolumeSliderContainerViewController>()),
              (rect(31, 115, 375, 100)));
    EXPECT_EQ(frameOf(sb().page<VNTBrightnessSliderContainerViewController>()),
              (rect(406, 115, 375, 100)));
    EXPECT_EQ(frameOf(sb().page<VNTMediaPlayerViewController>()), (rect(406, 15, 375, 100)));
    EXPECT_EQ(alphaOf(sb().page<VNTIconsContainerViewController>()), 0);
    EXPECT_EQ(alphaOf(sb().ccTogglesViewController()), 0);
    EXPECT_EQ(sb().maxHeight(), 215);
    EXPECT_EQ(sb().suggestedY(), 215);
}

TEST_F(Toolbar, TurningAndBackRestoresTheStack) {
    boot();
    sb().makeKeyWindow();
    sb().layoutForOrientation(3);
    sb().layoutForOrientation(1);
    EXPECT_EQ(sb().maxHeight(), 515);
    EXPECT_EQ(sb().suggestedY(), 515);
    expectPages(sb(), rect(0, 15, 375, 100), 0, 100);
    UIWindow window = sb().vantoriHostWindow();
    EXPECT_EQ((window.send<"transform", CGAffineTransform>()), identityTransform);
    EXPECT_EQ(window.frame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ((sb().send<"backgroundVisualEffectView", UIView>().frame()), (rect(0, 0, 375, 812)));
    auto daily = sb().page<VNTDailyToolBarViewController>();
    EXPECT_EQ(daily.toggleContainerView().frame(), daily.view().bounds());
    EXPECT_EQ(frameOf(sb().ccTogglesViewController()), (rect(375, 30, 375, 485)));
    EXPECT_EQ(sb().view().frame(), (rect(0, 812, 375, 812)));
    EXPECT_EQ(sb().grabberView().frame(), (rect(137.5, 10, 100, 5)));
}

TEST_F(Toolbar, TheObserverOfTheInterfaceLaysItOut) {
    boot();
    sb().makeKeyWindow();
    auto allows = [] { return sb().send<"shouldAllowAutoRotate", bool>(); };
    sb().send<"activeInterfaceOrientationWillChangeToOrientation:">(3L);
    EXPECT_TRUE(allows());
    sb().send<
        "activeInterfaceOrientationDidChangeToOrientation:willAnimateWithDuration:"
        "fromOrientation:">(3L, 0.3, 1L);
    EXPECT_FALSE(allows());
    EXPECT_EQ(sb().suggestedY(), 215);
    const auto turned = simulator::Journal::last("UIDevice", "setOrientation:animated:");
    ASSERT_TRUE(turned);
    EXPECT_EQ(std::get<long>(turned->at(0)), 3);
    EXPECT_TRUE(std::get<bool>(turned->at(1)));
}

// The device is turned, then the toolbar is told, then it is laid out; only then may it not turn by itself.
TEST_F(Toolbar, AnObservedTurnGoesInOrder) {
    boot();
    sb().makeKeyWindow();
    sb().send<"activeInterfaceOrientationWillChangeToOrientation:">(3L);
    phone_->clear();
    Spy<"didChangeOritation">::on("VNTSBToolBarController", [&](Object) {
        const int turned = phone_->calledCount("UIDevice", "setOrientation:animated:");
        Order::note(turned == 1 ? "told" : "told too early");
    });
    Spy<"setSuggestedY:", double>::on("VNTSBToolBarController", [&](Object, double) {
        Order::note(sb().send<"shouldAllowAutoRotate", bool>() ? "laid out" : "too late");
    });
    sb().send<
        "activeInterfaceOrientationDidChangeToOrientation:willAnimateWithDuration:"
        "fromOrientation:">(3L, 0.3, 1L);
    ASSERT_GE(Order::events().size(), 2u);
    EXPECT_EQ(Order::events().front().substr(0, 4), "told");
    EXPECT_EQ(Order::events().back(), "laid out");
}

// Turned by a quarter the window is 812 by 375 inside; the screen of the phone says the same.
TEST_F(Toolbar, OnItsSideItFillsTheWindow) {
    boot();
    sb().makeKeyWindow();
    sb().layoutForOrientation(3);
    const CGRect inside = sb().vantoriHostWindow().bounds();
    EXPECT_EQ(sb().view().bounds(), inside);
    EXPECT_EQ((sb().send<"backgroundVisualEffectView", UIView>().frame()), inside);
    EXPECT_EQ(shadow().frame(), inside);
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    EXPECT_EQ((sb().send<"suggestedFrame", CGRect>()), (rect(0, screen.height, screen.width, 215)));
    EXPECT_EQ(sb().vantoriScrollView().frame(), (rect(0, 0, inside.size.width, 215)));
}

TEST_F(Toolbar, BeforeThereIsAWindowItIsLaidOutForTheOneThatWillBe) {
    boot();
    ASSERT_FALSE(sb().vantoriHostWindow());
    sb().layoutForOrientation(3);
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    EXPECT_EQ(sb().view().bounds(), (rect(0, 0, screen.width, screen.height)));
}

TEST_F(Toolbar, TheSystemsPartOfAChangeOfTraitsIsDone) {
    boot();
    phone_->clear();
    app().send<"traitCollectionDidChange:">(Object());
    EXPECT_EQ(phone_->calledCount("UIViewController", "traitCollectionDidChange:"), 1);
}

TEST_F(Toolbar, AnswersForRotation) {
    boot();
    EXPECT_FALSE((sb().send<"shouldAutorotate", bool>()));
    EXPECT_EQ((sb().send<"supportedInterfaceOrientations", unsigned long>()), 30u);
    EXPECT_EQ((sb().send<"supportedInterfaceOritations", unsigned long>()), 2u);
    EXPECT_EQ((sb().send<"preferredInterfaceOrientationForPresentation", long>()), 1);
}

}  // namespace
}  // namespace vantori::tests
