// The phone by itself, without the extension: what it does when it is driven.
#include "simulator/scenario/phone.hpp"

#include <gtest/gtest.h>

#include "simulator/phone/screen_picture.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/windows.hpp"
#include "simulator/springboard/gestures/reachability.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"
#include "simulator/springboard/home/icon_lists.hpp"

namespace {

using namespace simulator;

class BarePhone : public testing::Test {
  protected:
    void SetUp() override { phone_ = makePhone({}); }
    void boot() {
        phone_->withoutExtension();
        phone_->boot();
    }
    std::string front() {
        SBApplication application = SpringBoard::shared().frontMostApplication();
        return application ? application.bundleIdentifier().utf8() : "";
    }
    AutoreleasePool pool_;
    std::unique_ptr<Phone> phone_;
};

TEST_F(BarePhone, BootsToTheHomeScreenInPortrait) {
    boot();
    EXPECT_EQ(front(), "");
    EXPECT_EQ(SpringBoard::shared().activeInterfaceOrientation(), 1);
    EXPECT_EQ(phone_->screenBounds().width, 375);
    EXPECT_EQ(phone_->screenBounds().height, 812);
    EXPECT_EQ(phone_->calledCount("SpringBoard", "applicationDidFinishLaunching:"), 1);
    EXPECT_EQ(phone_->calledCount("SBHomeScreenView", "didMoveToWindow"), 1);
    EXPECT_EQ(phone_->calledCount("SBMainDisplaySceneLayoutViewController", "viewDidLoad"), 1);
    EXPECT_EQ(phone_->hookCount(), 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(BarePhone, RefusesToDriveWhileItIsOff) {
    EXPECT_THROW(phone_->home(), PhoneError);
    boot();
    EXPECT_THROW(phone_->boot(), PhoneError);
    EXPECT_THROW(phone_->device("iPhone10,1"), PhoneError);
}

TEST_F(BarePhone, RefusesPartsThatThereAreNot) {
    EXPECT_THROW(phone_->screen(0, 0, 1), PhoneError);
    EXPECT_THROW(phone_->system("new"), PhoneError);
    EXPECT_THROW(phone_->dock(11), PhoneError);
}

TEST_F(BarePhone, OpensAnApplicationAndGoesHome) {
    boot();
    phone_->open("com.example.notes");
    EXPECT_EQ(front(), "com.example.notes");
    EXPECT_FALSE(windows().scenes.isHidden());
    phone_->home();
    EXPECT_EQ(front(), "");
    EXPECT_TRUE(windows().scenes.isHidden());
    EXPECT_THROW(phone_->open("com.example.nothing"), PhoneError);
}

TEST_F(BarePhone, TheSceneContainerIsTheOnlyViewOfItsController) {
    boot();
    auto controller = SBMainDisplaySceneLayoutViewController::main();
    ASSERT_EQ(controller.view().subviews().count(), 1u);
    EXPECT_EQ(controller.view().subviews().at(0), controller.sceneContainerView());
    EXPECT_EQ(controller.sceneContainerView().frame(), (rect(0, 0, 375, 812)));
}

TEST_F(BarePhone, LaunchesAreCountedAndASuspendedOneStaysBehind) {
    boot();
    NSString notes = NSString::from("com.example.notes");
    EXPECT_TRUE(SpringBoard::shared().launchApplication(notes, true));
    EXPECT_EQ(front(), "");
    EXPECT_TRUE(SpringBoard::shared().launchApplication(notes, false));
    EXPECT_EQ(front(), "com.example.notes");
    EXPECT_FALSE(SpringBoard::shared().launchApplication(NSString::from("nothing"), false));
    EXPECT_EQ(phone_->launchedCount("com.example.notes"), 1);
    EXPECT_EQ(phone_->launchedSuspendedCount("com.example.notes"), 1);
}

TEST_F(BarePhone, AppsThatOpenAreSavedAmongTheRecents) {
    boot();
    phone_->clear();
    phone_->open("com.example.notes");
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_saveRecents"), 1);
    EXPECT_EQ(phone_->calledCount("SBRecentAppLayouts", "_validateAndUpdateRecents:"), 1);
}

TEST_F(BarePhone, APullBringsTheUserHome) {
    boot();
    phone_->open("com.example.notes");
    phone_->pull({60, 300, 0.3, std::nullopt});
    phone_->wait(1);
    EXPECT_EQ(front(), "");
}

TEST_F(BarePhone, AShortPullLeavesTheApplicationInFront) {
    boot();
    phone_->open("com.example.notes");
    phone_->pull({60, 30, 0.3, std::nullopt});
    phone_->wait(1);
    EXPECT_EQ(front(), "com.example.notes");
}

TEST_F(BarePhone, APullThatFlicksBackLeavesTheApplicationInFront) {
    boot();
    phone_->open("com.example.notes");
    phone_->pull({60, 300, 0.3, -500.0});
    phone_->wait(1);
    EXPECT_EQ(front(), "com.example.notes");
}

TEST_F(BarePhone, PullsAreReportedAtTheDisplaysRate) {
    boot();
    phone_->clear();
    // 0.5 s are 30 frames of 4 points; the third is the first of 10 points or more.
    phone_->pull({60, 120, 0.5, std::nullopt});
    const char* manager = "SBFluidSwitcherGestureManager";
    EXPECT_EQ(phone_->calledCount(manager, "grabberTongueBeganPulling:withDistance:andVelocity:"),
              1);
    EXPECT_EQ(phone_->calledCount(manager, "grabberTongueUpdatedPulling:withDistance:andVelocity:"),
              27);
    EXPECT_EQ(phone_->calledCount(manager, "grabberTongueEndedPulling:withDistance:andVelocity:"),
              1);
    EXPECT_EQ(phone_->calledCount("SBFluidSwitcherGestureExclusionTrapezoid",
                                  "shouldBeginGestureAtStartingPoint:velocity:bounds:"),
              1);
}

TEST_F(BarePhone, WithAHomeButtonAPullOpensControlCenter) {
    phone_->device("iPhone10,1");
    boot();
    EXPECT_EQ(BSPlatform::shared().homeButtonType(), 0);
    phone_->pull({60, 300, 0.3, std::nullopt});
    phone_->wait(1);
    EXPECT_TRUE(controlCenterIsOpen());
    EXPECT_FALSE(windows().controlCenter.isHidden());
}

TEST_F(BarePhone, TheStatusBarOpensControlCenter) {
    boot();
    EXPECT_EQ(BSPlatform::shared().homeButtonType(), 2);
    phone_->statusBar(PullPhase::began, 350, 5, 0);
    phone_->statusBar(PullPhase::updated, 350, 120, 200);
    phone_->statusBar(PullPhase::ended, 350, 200, 0);
    phone_->wait(1);
    EXPECT_TRUE(controlCenterIsOpen());
    phone_->touchDown(20, 700);
    phone_->wait(0.05);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_FALSE(controlCenterIsOpen());
    EXPECT_TRUE(windows().controlCenter.isHidden());
}

TEST_F(BarePhone, TheLockScreenCovers) {
    boot();
    phone_->lock();
    phone_->wait(1);
    EXPECT_TRUE(isLocked());
    EXPECT_FALSE(windows().coverSheet.isHidden());
    phone_->unlock();
    phone_->wait(1);
    EXPECT_FALSE(isLocked());
    EXPECT_TRUE(windows().coverSheet.isHidden());
}

TEST_F(BarePhone, TurnsItsInterface) {
    boot();
    phone_->open("com.example.notes");
    phone_->clear();
    phone_->rotate(Orientation::landscapeRight);
    EXPECT_EQ(phone_->screenBounds().width, 812);
    EXPECT_EQ(phone_->screenBounds().height, 375);
    EXPECT_EQ(SpringBoard::shared().frontMostAppOrientation(), 3);
    EXPECT_EQ(phone_->postedCount("UIDeviceOrientationDidChangeNotification"), 1);
    EXPECT_EQ(phone_->calledCount("SpringBoard",
                                  "_postActiveInterfaceOrientationChangedNotificationAnimated:"),
              1);
    EXPECT_NEAR(windows().scenes.bounds().size.width, 812, 1e-9);
    EXPECT_NEAR(windows().scenes.frame().size.width, 375, 1e-9);
}

class Edge : public BarePhone, public testing::WithParamInterface<Orientation> {};

// Portrait: x. Landscape right: y. Else: the main screen's width less y.
TEST_P(Edge, TheTonguesFingerIsSoFarAlongTheBottomEdge) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(GetParam());
    phone_->grabber(PullPhase::began, 60, 10, 0);
    SBGrabberTongue tongue = gestureManager().deckGrabberTongue();
    CGPoint finger = tongue.edgePullGestureRecognizer().locationInView(tongue.tongueContainer());
    double width = UIScreen::mainScreen().bounds().size.width;
    switch (GetParam()) {
        case Orientation::portrait:
            EXPECT_NEAR(finger.x, 60, 1e-9);
            break;
        case Orientation::landscapeRight:
            EXPECT_NEAR(finger.y, 60, 1e-9);
            break;
        default:
            EXPECT_NEAR(width - finger.y, 60, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Orientations, Edge,
                         testing::Values(Orientation::portrait, Orientation::upsideDown,
                                         Orientation::landscapeRight, Orientation::landscapeLeft));

TEST_F(BarePhone, ATapOnAnIconOpensItsApplication) {
    boot();
    // The dock's first icon: 27 points in, in the middle of the dock.
    phone_->touchDown(57, 753);
    phone_->wait(0.05);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(front(), "com.apple.mobilephone");
    EXPECT_EQ(phone_->launchedCount("com.apple.mobilephone"), 1);
}

TEST_F(BarePhone, AFingerThatPullsFromTheBottomEdgeGoesHome) {
    boot();
    phone_->open("com.example.notes");
    phone_->touchDown(180, 810);
    phone_->touchMove(180, 500, 0.3);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(front(), "");
    EXPECT_THROW(phone_->touchUp(), PhoneError);
}

TEST_F(BarePhone, ShowsWhatIsOnItsScreen) {
    boot();
    rendering::Surface home = screenPicture();
    EXPECT_EQ(home.width(), 375);
    EXPECT_EQ(home.height(), 812);
    unsigned before = home.pixel(187, 400);
    phone_->open("com.example.notes");
    EXPECT_NE(screenPicture().pixel(187, 400), before);
    phone_->rotate(Orientation::landscapeRight);
    EXPECT_EQ(screenPicture().width(), 812);
}

class Without : public BarePhone, public testing::WithParamInterface<const char*> {};

// Whatever is refused for want of the class, nothing crashes.
TEST_P(Without, ThatClassThePhoneLives) {
    phone_->missingClass(GetParam());
    boot();
    auto tryTo = [](auto action) {
        try {
            action();
        } catch (const PhoneError& refusal) {
            EXPECT_NE(std::string(refusal.what()).find(GetParam()), std::string::npos)
                << refusal.what();
        }
    };
    tryTo([&] { phone_->open("com.example.notes"); });
    tryTo([&] { phone_->pull({60, 300, 0.3, std::nullopt}); });
    tryTo([&] { phone_->grabber(PullPhase::began, 60, 10, 0); });
    tryTo([&] { phone_->controlCenterGrabber(PullPhase::began, 60, 10, 0); });
    tryTo([&] { phone_->statusBar(PullPhase::began, 350, 10, 0); });
    tryTo([&] { phone_->rotate(Orientation::landscapeLeft); });
    tryTo([&] { phone_->lock(); });
    tryTo([&] { phone_->unlock(); });
    tryTo([&] { phone_->home(); });
    EXPECT_EQ(objc_getClass(GetParam()), nullptr);
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(
    Class, Without,
    testing::Values("SBControlCenterController", "SBLockScreenManager",
                    "SBMainDisplaySceneLayoutViewController", "SBSceneLayoutViewController",
                    "SBApplicationSceneView", "SBHomeScreenView", "SBFluidSwitcherGestureManager",
                    "SBGrabberTongue", "SBFluidSwitcherGestureExclusionTrapezoid",
                    "SBRecentAppLayouts", "SBAppLayout", "SBDisplayItem", "SBApplication",
                    "SBApplicationController", "SBIconListView", "SBDockView", "SBIcon",
                    "SBIconView", "SBIconController", "SBIconModel", "SBRootFolderDockIconListView",
                    "SBReachabilityManager", "SBWallpaperEffectView", "BSPlatform",
                    "SBMediaController", "MediaControlsVolumeController", "SBHomeScreenWindow",
                    "SBMainScreenWindow", "SBWallpaperWindow", "SBStatusBarWindow",
                    "SBControlCenterWindow", "SBCoverSheetWindow"));

TEST_F(BarePhone, InheritedMethodsAreNotOverriddenByTheDocksLists) {
    boot();
    for (const char* message : {"visibleIcons", "setEditing:", "layoutIconsNow"}) {
        SEL selector = sel_registerName(message);
        Method base = class_getInstanceMethod(objc_getClass("SBIconListView"), selector);
        for (const char* cls : {"SBRootFolderDockIconListView", "SBFloatingDockIconListView"}) {
            EXPECT_EQ(class_getInstanceMethod(objc_getClass(cls), selector), base) << message;
        }
    }
}

}  // namespace
