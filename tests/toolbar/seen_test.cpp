// A toolbar that is open is seen, takes touches and shows what is: however it was opened, and whatever
// happened before the first pull. W = 375, H = 812; a slider is 120 points wide.
#include "tests/library_phone.hpp"
#include "toggles/volume_slider.hpp"
#include "toolbar/arrangement.hpp"

namespace vantori::tests {
namespace {

class Seen : public LibraryPhone {
  protected:
    static VNTToolBarController app() { return VNTToolBarController::shared(); }
    static VNTSBToolBarController sb() { return VNTSBToolBarController::shared(); }
    static UIView shadow() { return sb().send<"backgroundShadowView", UIView>(); }
    static CGSize contentOf(VNTToolBarController toolbar) {
        return toolbar.vantoriScrollView().contentSize();
    }
    static CGPoint offsetOf(VNTToolBarController toolbar) {
        return toolbar.vantoriScrollView().contentOffset();
    }
    static long dotOf(VNTToolBarController toolbar) {
        return toolbar.scrollViewPageController().send<"currentPage", long>();
    }
    // Another page than the first, as a swipe leaves it.
    static void turnPage(VNTToolBarController toolbar, int page) {
        toolbar.vantoriScrollView().setContentOffset({375.0 * page, 0});
        toolbar.send<"scrollViewDidEndDecelerating:">(toolbar.vantoriScrollView());
    }
    void bootWithDirection(int direction) {
        set("layoutDirection", direction);
        boot();
    }
    void reachForTop() {
        Object(classObject(objc_getClass("SBReachabilityManager")))
            .send<"sharedInstance", Object>()
            .send<"toggleReachability">();
        phone_->wait(1);
    }
    void pull() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
    }
    void pullStatusBar() {
        phone_->statusBar(simulator::PullPhase::began, 300, 5, 0);
        phone_->statusBar(simulator::PullPhase::updated, 300, 400, 0);
        phone_->statusBar(simulator::PullPhase::ended, 300, 400, 0);
        phone_->wait(1);
    }
    void rearrange(int direction, const char* notification) {
        set("layoutDirection", direction);
        phone_->postDarwin(notification);
        phone_->wait(0.1);
    }
    // All pages side by side.
    static CGSize stripOf(VNTToolBarController toolbar) {
        return {375.0 * static_cast<double>(toolbar.pages().count()), 115};
    }
    // A finger at the middle of the brightness slider: 23 points to the right are 20 of the grown
    // slider.
    void expectBrightnessFollowsIn(VNTToolBarController toolbar) {
        const CGPoint middle = middleOf(brightnessOf(toolbar));
        expectBrightnessFollowsAt(middle.x, middle.y);
    }
    void expectBrightnessFollowsAt(double x, double y) {
        phone_->touchDown(x, y);
        phone_->wait(0.2);
        phone_->touchMove(x + 23, y, 0.2);
        phone_->touchUp();
        const double brightness = UIScreen::mainScreen().send<"brightness", double>();
        EXPECT_NEAR(brightness, 0.5 + 20.0 / 120, 1e-6);
    }
    static VNTBrightnessSliderContainerViewController brightnessPageOf(
        VNTToolBarController toolbar) {
        return toolbar.page<VNTBrightnessSliderContainerViewController>();
    }
    static VNTSlider brightnessOf(VNTToolBarController toolbar) {
        return brightnessPageOf(toolbar).brightnessSlider();
    }
    static VNTSlider volumeOf(VNTToolBarController toolbar) {
        return toolbar.page<VNTVolumeSliderContainerViewController>().volumeSlider();
    }
    static std::string glyphOf(VNTSlider slider) {
        NSString state = slider.packageView().send<"stateName", NSString>();
        return state ? state.utf8() : "";
    }
    // Half of 120 points, and nothing was posted for it.
    void expectLevelsShownBy(VNTToolBarController toolbar) {
        for (VNTSlider slider : {brightnessOf(toolbar), volumeOf(toolbar)}) {
            EXPECT_NEAR(slider.frontView().frame().origin.x, -60, 1e-6);
        }
        EXPECT_EQ(glyphOf(brightnessOf(toolbar)), "mid");
        EXPECT_EQ(glyphOf(volumeOf(toolbar)), "half");
        EXPECT_EQ(posted("should-refresh-value"), 0);
        EXPECT_EQ(posted("should-refresh-state"), 0);
    }
};

TEST_F(Seen, OpenedByReachabilityBeforeAnyPull) {
    set("reachability", true);
    boot();
    reachForTop();
    ASSERT_TRUE(sb().isEnabled());
    ASSERT_TRUE(sb().vantoriHostWindow());
    EXPECT_EQ(sb().view().frame(), rect(0, 812 - stackedHeight(sb()), 375, 812));
    expectLevelsShownBy(sb());
    expectBrightnessFollowsIn(sb());
}

TEST_F(Seen, ReachabilityMakesTheWindowOnce) {
    set("reachability", true);
    boot();
    reachForTop();
    VNTSBHostWindow window = sb().vantoriHostWindow();
    sb().dismiss();
    phone_->wait(1);
    reachForTop();
    EXPECT_EQ(sb().vantoriHostWindow(), window);
    EXPECT_TRUE(sb().isEnabled());
}

TEST_F(Seen, OpenedByReachabilityBehindAnApplication) {
    set("reachability", true);
    set("alwaysSpringBoardStyle", false);
    boot();
    phone_->open("com.example.notes");
    phone_->wait(1);
    reachForTop();
    ASSERT_TRUE(app().isEnabled());
    EXPECT_TRUE((app().page<VNTConnectivityBarViewController>().send<"hasBeenLayouted", bool>()));
    expectLevelsShownBy(app());
    expectBrightnessFollowsIn(app());
}

TEST_F(Seen, RaisedByTheStatusBarTheSlidersShowWhatIs) {
    set("replaceCC", true);
    boot();
    phone_->statusBar(simulator::PullPhase::began, 300, 5, 0);
    phone_->wait(1);
    expectLevelsShownBy(sb());
    pullStatusBar();
    expectBrightnessFollowsIn(sb());
}

TEST_F(Seen, PulledInControlCentersPlaceTheSlidersShowWhatIs) {
    set("replaceCC", true);
    set("alwaysSpringBoardStyle", false);
    boot();
    phone_->open("com.example.notes");
    phone_->wait(1);
    phone_->controlCenterGrabber(simulator::PullPhase::began, 60, 10, 0);
    phone_->wait(1);
    expectLevelsShownBy(app());
    expectLevelsShownBy(sb());
}

class SeenTurned : public Seen, public testing::WithParamInterface<simulator::Orientation> {};

// The window is turned as one that was there before. On the screen of 812 by 375 the toolbar stands at
// 160; the brightness slider at 31 + 375 + 234, 115 + 25 in it.
TEST_P(SeenTurned, BeforeTheFirstPull) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(GetParam());
    phone_->wait(1);
    EXPECT_FALSE(sb().vantoriHostWindow());
    pull();
    ASSERT_TRUE(sb().isEnabled());
    const CGRect whole = rect(0, 0, 812, 375);
    for (const CGRect met : {sb().vantoriHostWindow().bounds(), shadow().frame()}) {
        EXPECT_NEAR(met.size.width, whole.size.width, 1e-9);
        EXPECT_NEAR(met.size.height, whole.size.height, 1e-9);
    }
    EXPECT_EQ(sb().vantoriScrollView().frame(), rect(0, 0, 812, 215));
    EXPECT_EQ(contentOf(sb()), (CGSize{812, 215}));
    EXPECT_EQ(sb().grabberView().frame(), rect(356, 10, 100, 5));
    expectBrightnessFollowsAt(700, 325);
}

TEST_P(SeenTurned, TheWindowIsTheOneThatAPullInPortraitMakes) {
    boot();
    phone_->open("com.example.notes");
    pull();
    sb().dismiss();
    phone_->wait(1);
    phone_->rotate(GetParam());
    phone_->wait(1);
    const auto turned = sb().vantoriHostWindow().send<"transform", CGAffineTransform>();
    const double sine = GetParam() == simulator::Orientation::landscapeRight ? 1 : -1;
    EXPECT_NEAR(turned.b, sine, 1e-12);
    EXPECT_NEAR(turned.c, -sine, 1e-12);
    pull();
    expectBrightnessFollowsAt(700, 325);
}

INSTANTIATE_TEST_SUITE_P(Sides, SeenTurned,
                         testing::Values(simulator::Orientation::landscapeRight,
                                         simulator::Orientation::landscapeLeft));

TEST_F(Seen, TurnedAndBackBeforeTheFirstPull) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    phone_->rotate(simulator::Orientation::portrait);
    phone_->wait(1);
    pull();
    EXPECT_EQ(sb().vantoriHostWindow().frame(), rect(0, 0, 375, 812));
    expectBrightnessFollowsIn(sb());
}

// Side by side, then stacked: what was in front has gone.
TEST_F(Seen, StackedWhileAnotherPageIsInFront) {
    bootWithDirection(1);
    pull();
    turnPage(sb(), 3);
    turnPage(app(), 4);
    sb().dismiss();
    phone_->wait(1);
    rearrange(3, "VantoriPB/reloadSettings");
    for (VNTToolBarController toolbar : {app(), VNTToolBarController(sb())}) {
        EXPECT_EQ(offsetOf(toolbar), (CGPoint{0, 0}));
        EXPECT_EQ(dotOf(toolbar), 0);
    }
    pull();
    expectBrightnessFollowsIn(sb());
}

TEST_F(Seen, StackedByThePagesAloneWhileAnotherPageIsInFront) {
    bootWithDirection(1);
    pull();
    turnPage(sb(), 3);
    sb().dismiss();
    phone_->wait(1);
    rearrange(3, "com.ferolin.vantori.refresh-all-toggles");
    EXPECT_EQ(offsetOf(sb()), (CGPoint{0, 0}));
    const double stack = stackedHeight(sb());
    EXPECT_EQ(contentOf(sb()), (CGSize{750, stack}));
    EXPECT_EQ(contentOf(app()), (CGSize{375, stack}));
    EXPECT_EQ(sb().suggestedY(), stack);
    EXPECT_EQ(app().view().frame(), rect(0, 812 - stack, 375, stack));
    EXPECT_EQ(MAX_SIZE, stack);
    pull();
    expectBrightnessFollowsIn(sb());
}

TEST_F(Seen, LaidSideBySideByThePagesAloneAllCanBeReached) {
    boot();
    rearrange(1, "com.ferolin.vantori.refresh-all-toggles");
    for (VNTToolBarController toolbar : {app(), VNTToolBarController(sb())}) {
        EXPECT_EQ(contentOf(toolbar), stripOf(toolbar));
        EXPECT_EQ(toolbar.maxHeight(), 115);
    }
    EXPECT_EQ(sb().suggestedY(), 115);
    EXPECT_EQ(MAX_SIZE, 115);
    pull();
    const double left = brightnessPageOf(sb()).view().frame().origin.x;
    ASSERT_GT(left, 0);
    for (double turned = 0; turned < left; turned += 375) {
        phone_->touchDown(300, 720);
        phone_->touchMove(60, 720, 0.2);
        phone_->touchUp();
        phone_->wait(2);
    }
    EXPECT_EQ(offsetOf(sb()), (CGPoint{left, 0}));
    expectBrightnessFollowsIn(sb());
}

// What is in front stays there while the arrangement does.
TEST_F(Seen, AnUnchangedArrangementKeepsThePage) {
    bootWithDirection(1);
    turnPage(sb(), 3);
    for (const char* notification :
         {"VantoriPB/reloadSettings", "com.ferolin.vantori.refresh-all-toggles"}) {
        rearrange(1, notification);
        EXPECT_EQ(offsetOf(sb()), (CGPoint{1125, 0}));
        EXPECT_EQ(dotOf(sb()), 3);
    }
}

TEST_F(Seen, TheModulesPageStaysInFrontOfAStack) {
    boot();
    announceSettings();
    turnPage(sb(), 1);
    for (const char* notification :
         {"VantoriPB/reloadSettings", "com.ferolin.vantori.refresh-all-toggles"}) {
        rearrange(3, notification);
        EXPECT_EQ(offsetOf(sb()), (CGPoint{375, 0}));
        EXPECT_EQ(contentOf(sb()), (CGSize{750, stackedHeight(sb())}));
    }
}

// The modules page is no page of the strip, though one stands where it did.
TEST_F(Seen, LaidSideBySideWhileTheModulesPageIsInFront) {
    boot();
    announceSettings();
    turnPage(sb(), 1);
    rearrange(1, "VantoriPB/reloadSettings");
    EXPECT_EQ(offsetOf(sb()), (CGPoint{0, 0}));
    EXPECT_EQ(dotOf(sb()), 0);
}

TEST_F(Seen, TurnedWhileAnotherPageIsInFront) {
    bootWithDirection(1);
    phone_->open("com.example.notes");
    pull();
    turnPage(sb(), 2);
    sb().dismiss();
    phone_->wait(1);
    phone_->rotate(simulator::Orientation::landscapeLeft);
    phone_->wait(1);
    pull();
    EXPECT_EQ(offsetOf(sb()), (CGPoint{0, 0}));
    expectBrightnessFollowsAt(700, 325);
}

// The pages of a phone on its side stay a grid in their content until it is turned back.
TEST_F(Seen, AReloadOfPagesLeavesTheContentOfTheGrid) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeLeft);
    phone_->wait(1);
    rearrange(1, "com.ferolin.vantori.refresh-all-toggles");
    EXPECT_EQ(contentOf(sb()), (CGSize{812, 215}));
    phone_->rotate(simulator::Orientation::portrait);
    phone_->wait(1);
    EXPECT_EQ(contentOf(sb()), stripOf(sb()));
}

}  // namespace
}  // namespace vantori::tests
