// The pull at the bottom edge, report by report. W = 375, H = 812; the strip is 115
// high.
#include "hooks/pull_tracking.hpp"

#include "pages/lifted_scene.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/springboard/gestures/switcher_gestures.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"
#include "toolbar/rubber_band.hpp"

namespace vantori::tests {
namespace {

using simulator::PullPhase;

class Pull : public LibraryPhone {
  protected:
    void bootStrip(bool springBoardStyle = true) {
        set("layoutDirection", 1);
        set("alwaysSpringBoardStyle", springBoardStyle);
        boot();
    }
    void bootInApplication(bool springBoardStyle) {
        bootStrip(springBoardStyle);
        phone_->open("com.example.notes");
        phone_->clear();
    }
    void began(double distance = 10) { phone_->grabber(PullPhase::began, 60, distance, 0); }
    void updated(double distance) { phone_->grabber(PullPhase::updated, 60, distance, 0); }
    void ended(double velocity) { phone_->grabber(PullPhase::ended, 60, 100, velocity); }
    void cancelled() { phone_->grabber(PullPhase::cancelled, 60, 100, 0); }

    static VNTSBToolBarController toolbar() { return VNTSBToolBarController::shared(); }
    static double toolbarY() { return toolbar().view().frame().origin.y; }
    static CGRect sceneFrame() { return sceneContainer().frame(); }
    static double sceneRadius() { return sceneContainer().layer().cornerRadius(); }
    long systemCalls(const char* phase) {
        return phone_->calledCount(
            "SBFluidSwitcherGestureManager",
            std::string("grabberTongue") + phase + "Pulling:withDistance:andVelocity:");
    }
    long backNow() { return phone_->darwinPostedCount("com.ferolin.vantori.Back-Now"); }
};

struct BandCase {
    double distance, expected;
};
class RubberBand : public testing::TestWithParam<BandCase> {};

TEST_P(RubberBand, DividesTheExcessByTheHeightsPulled) {
    EXPECT_NEAR(rubberBand(GetParam().distance, 115), GetParam().expected, 1e-9);
}

// 115 + 57.5 / 1.5, 115 + 115 / 2, 115 + 230 / 3.
INSTANTIATE_TEST_SUITE_P(Heights, RubberBand,
                         testing::Values(BandCase{-20, -20}, BandCase{114.5, 114.5},
                                         BandCase{115, 115}, BandCase{172.5, 115 + 57.5 / 1.5},
                                         BandCase{230, 172.5}, BandCase{345, 115 + 230.0 / 3}));

class LaterPull : public Pull, public testing::WithParamInterface<const char*> {
  protected:
    LaterPull() { phone_->system("13.5"); }
    std::string reported() const {
        return std::string("grabberTongue") + GetParam() +
               "Pulling:withDistance:andVelocity:andGesture:";
    }
    static PullPhase phase() {
        const std::string name = GetParam();
        if (name == "Began") return PullPhase::began;
        if (name == "Updated") return PullPhase::updated;
        return name == "Ended" ? PullPhase::ended : PullPhase::cancelled;
    }
};

// Outside the zones the system gets back what it reported, the gesture included: 300 points along the
// edge, in the right third, is in no zone.
TEST_P(LaterPull, TheSystemGetsItsGestureBack) {
    bootStrip();
    if (phase() != PullPhase::began) phone_->grabber(PullPhase::began, 300, 10, 0);
    phone_->clear();
    phone_->grabber(phase(), 300, 42, 7);
    const auto arguments = simulator::Journal::last("SBFluidSwitcherGestureManager", reported());
    ASSERT_TRUE(arguments);
    ASSERT_EQ(arguments->size(), 4u);
    EXPECT_EQ(std::get<Strong<Object>>((*arguments)[0]), Object(simulator::grabberTongue()));
    EXPECT_EQ(std::get<double>((*arguments)[1]), 42);
    EXPECT_EQ(std::get<double>((*arguments)[2]), 7);
    EXPECT_TRUE(simulator::edgePullPan());
    EXPECT_EQ(std::get<Strong<Object>>((*arguments)[3]), Object(simulator::edgePullPan()));
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Stages, LaterPull,
                         testing::Values("Began", "Updated", "Ended", "Canceled"));

TEST_F(Pull, OnTheHomeScreenTheToolbarFollowsTheFinger) {
    bootStrip();
    began();
    EXPECT_TRUE(pullingSBToolbar);
    EXPECT_FALSE(liftingAppScene);
    EXPECT_EQ(toolbarY(), 802);
    EXPECT_EQ(phone_->haptics(1), 1);
    updated(100);
    EXPECT_EQ(toolbarY(), 712);
    updated(230);
    EXPECT_EQ(toolbarY(), 812 - 172.5);
    const double shadow = toolbar().send<"backgroundShadowView", UIView>().alpha();
    EXPECT_NEAR(shadow, 172.5 / 812 * 0.5, 1e-6);
    ended(0);
    EXPECT_EQ(toolbarY(), 812 - 115);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 1);
    EXPECT_EQ(systemCalls("Began") + systemCalls("Updated") + systemCalls("Ended"), 0);
}

TEST_F(Pull, ReleasedAtExactlyTheThresholdOpens) {
    bootStrip();
    began();
    ended(-5.0);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 697);
}

TEST_F(Pull, ReleasedFasterThanTheThresholdCloses) {
    bootStrip();
    began();
    ended(-5.01);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 1);
}

TEST_F(Pull, OutsideEveryZoneTheSystemHandlesIt) {
    bootStrip();
    phone_->grabber(PullPhase::began, 300, 10, 0);
    phone_->grabber(PullPhase::updated, 300, 50, 0);
    phone_->grabber(PullPhase::ended, 300, 50, 0);
    EXPECT_EQ(systemCalls("Began"), 1);
    EXPECT_EQ(systemCalls("Updated"), 1);
    EXPECT_EQ(systemCalls("Ended"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 0);
    EXPECT_EQ(phone_->haptics(1), 0);
    EXPECT_FALSE(toolbar().isEnabled());
}

// Control Center may be seen again before the system hears of the pull.
TEST_F(Pull, OutsideEveryZoneControlCenterIsLetBackFirst) {
    bootStrip();
    began();
    ended(-5.01);
    ASSERT_TRUE(shouldHideCCScrollView);
    phone_->clear();
    listenTo({"com.ferolin.vantori-ccback"});
    Order::look() = [this] { Order::note(systemCalls("Began") == 0 ? "first" : "late"); };
    phone_->grabber(PullPhase::began, 300, 10, 0);
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"com.ferolin.vantori-ccback", "first"}));
    EXPECT_FALSE(shouldHideCCScrollView);
}

TEST_F(Pull, TheToolbarMovesBeforeItCountsAsOpen) {
    bootStrip();
    began();
    updated(100);
    std::vector<bool> opens;
    Spy<"updateYValueWithAnimation:", double>::on(
        "VNTSBToolBarController", [&](Object, double) { opens.push_back(toolbar().isEnabled()); });
    ended(0);
    EXPECT_EQ(opens, (std::vector<bool>{false}));
}

TEST_F(Pull, TheOneBehindCountsAsOpenBeforeTheSceneMoves) {
    bootInApplication(false);
    began();
    updated(100);
    double top = 0;
    Spy<"setIsEnabled:", bool>::on("VNTToolBarController",
                                   [&](Object, bool) { top = sceneFrame().origin.y; });
    ended(0);
    EXPECT_EQ(top, -100);
}

// Its end is posted while it still is one.
TEST_F(Pull, IsForgottenLast) {
    bootStrip();
    listenTo({"com.ferolin.vantori-finish-launching", "com.ferolin.vantori-stopmarquee"});
    Order::look() = [] { Order::note(pullingSBToolbar ? "pulling" : "forgotten"); };
    using Events = std::vector<std::string>;
    began();
    Order::forget();
    ended(0);
    EXPECT_EQ(Order::events(), (Events{"com.ferolin.vantori-finish-launching", "pulling"}));
    toolbar().dismiss();
    began();
    Order::forget();
    cancelled();
    EXPECT_EQ(Order::events(), (Events{"com.ferolin.vantori-stopmarquee", "pulling"}));
    EXPECT_FALSE(pullingSBToolbar);
}

TEST_F(Pull, ASecondPullClosesTheOpenToolbar) {
    bootStrip();
    began();
    ended(0);
    began();
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(systemCalls("Began"), 0);
}

TEST_F(Pull, CancelledLowersAll) {
    bootStrip();
    began();
    phone_->clear();
    cancelled();
    EXPECT_EQ(systemCalls("Canceled"), 1);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    EXPECT_EQ(backNow(), 1);
}

// What is written down of a closing: the flag of the toolbar behind, and where the scene is headed then.
class ClosingPull : public Pull {
  protected:
    void watch() {
        Spy<"setIsEnabled:", bool>::on("VNTToolBarController", [this](Object, bool on) {
            std::string event = on ? "on" : "off";
            event += sceneFrame().origin.y == 0 ? ", down" : ", up";
            Order::note(event + (posted("com.ferolin.vantori-stopmarquee") > 0 ? ", posted" : ""));
        });
        phone_->clear();
    }
    using Events = std::vector<std::string>;
};

// The flag is cleared before and after the spring, and only then is anything posted.
TEST_F(ClosingPull, AFlickClearsTheFlagTwice) {
    bootInApplication(false);
    began();
    updated(100);
    watch();
    ended(-5.01);
    EXPECT_EQ(Order::events(), (Events{"off, up", "off, down"}));
}

TEST_F(ClosingPull, ASecondPullClearsTheFlagTwice) {
    bootInApplication(false);
    began();
    ended(0);
    phone_->wait(1);
    watch();
    began();
    EXPECT_EQ(Order::events(), (Events{"off, up", "off, down"}));
}

// The scene is let go before the marquee stops, and others hear of it after that.
TEST_F(ClosingPull, TheMarqueeStopsBeforeOthersHear) {
    bootInApplication(false);
    began();
    updated(100);
    phone_->clear();
    listenTo({"com.ferolin.vantori-stopmarquee"});
    Order::look() = [this] {
        if (liftingAppScene) Order::note("still lifting");
        if (backNow() > 0) Order::note("heard");
    };
    ended(-5.01);
    EXPECT_EQ(Order::events(), (Events{"com.ferolin.vantori-stopmarquee"}));
    EXPECT_EQ(backNow(), 1);
}

TEST_F(ClosingPull, CancelledTheSystemIsToldFirstAndTheToolbarAboveIsClearedFirst) {
    bootInApplication(false);
    began();
    updated(100);
    phone_->clear();
    long systemBefore = 0;
    listenTo({"com.ferolin.vantori-stopmarquee"});
    toolbar().setIsEnabled(true);
    Spy<"setIsEnabled:", bool>::on("VNTToolBarController", [&](Object, bool) {
        systemBefore = systemCalls("Canceled");
        Order::note(toolbar().isEnabled() ? "behind, above is on" : "behind");
    });
    cancelled();
    EXPECT_EQ(systemBefore, 1);
    EXPECT_EQ(Order::events(), (Events{"behind", "behind", "com.ferolin.vantori-stopmarquee"}));
}

TEST_F(Pull, ThePullsHeightIsThatOfTheToolbarAbove) {
    bootStrip();
    toolbar().setMaxHeight(215);  // as the grid's, while the one behind keeps 115
    began();
    EXPECT_EQ(MAX_SIZE, 215);
    EXPECT_EQ(VNTToolBarController::shared().view().frame(), (rect(0, 812 - 215, 375, 215)));
    ended(0);
    EXPECT_EQ(toolbarY(), 812 - 215);
}

TEST_F(Pull, TheDockIsAskedAgainAtEachUpdate) {
    bootStrip();
    auto asked = [this] {
        return phone_->calledCount("SBRootFolderDockIconListView", "visibleIcons");
    };
    began();
    const long first = asked();
    EXPECT_GE(first, 1);
    updated(50);
    const long second = asked();
    EXPECT_GT(second, first);
    updated(60);
    EXPECT_EQ(asked() - second, second - first);
}

// The style decides when a pull is let go, too: switched on meanwhile, nothing opens.
TEST_F(Pull, TheStyleChangedDuringAPullOpensNothing) {
    bootInApplication(false);
    began();
    updated(50);
    alwaysSpringBoardStyle = true;
    ended(0);
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(sceneFrame(), (rect(0, -50, 375, 812)));
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 1);
    EXPECT_FALSE(liftingAppScene);
}

TEST_F(Pull, WithBothToolbarsOpenTheOneBehindIsClosedAlone) {
    bootInApplication(true);
    began();
    ended(0);
    VNTToolBarController::shared().setIsEnabled(true);
    phone_->clear();
    began();
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 697);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 0);
    began();
    EXPECT_FALSE(toolbar().isEnabled());
}

// The switcher's reports and Control Center's are of one pull.
TEST_F(Pull, BothReportersShareTheFlags) {
    set("replaceCC", true);
    bootStrip();
    began();
    phone_->controlCenterGrabber(PullPhase::updated, 60, 100, 0);
    EXPECT_EQ(toolbarY(), 712);
    phone_->controlCenterGrabber(PullPhase::ended, 60, 100, 0);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE(pullingSBToolbar);
    toolbar().dismiss();
    phone_->controlCenterGrabber(PullPhase::began, 60, 10, 0);
    updated(80);
    EXPECT_EQ(toolbarY(), 732);
    cancelled();
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(backNow(), 1);
}

TEST_F(Pull, CancelledWithoutAPullPostsNothing) {
    bootStrip();
    cancelled();
    EXPECT_EQ(systemCalls("Canceled"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 0);
    EXPECT_EQ(backNow(), 0);
}

TEST_F(Pull, InFrontOfAnApplicationTheSceneIsLifted) {
    bootInApplication(false);
    began(20);
    EXPECT_TRUE(liftingAppScene);
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(sceneFrame(), (rect(0, -20, 375, 812)));
    EXPECT_EQ(sceneRadius(), 30);
    EXPECT_TRUE(sceneContainer().layer().masksToBounds());
    updated(57.5);
    EXPECT_EQ(sceneFrame(), (rect(0, -57.5, 375, 812)));
    EXPECT_EQ(sceneRadius(), 15);
    updated(345);
    EXPECT_NEAR(sceneFrame().origin.y, -(115 + 230.0 / 3), 1e-9);
    EXPECT_EQ(sceneRadius(), 30);
    ended(0);
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(sceneFrame(), (rect(0, -115, 375, 812)));
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 1);
    phone_->wait(1);
    EXPECT_EQ(sceneFrame(), (rect(0, -115, 375, 812)));
    EXPECT_EQ(sceneRadius(), 30);
    EXPECT_EQ(systemCalls("Began") + systemCalls("Updated") + systemCalls("Ended"), 0);
}

TEST_F(Pull, AnUpdateThatMovesTheSceneMovesNothingElse) {
    bootInApplication(false);
    began();
    pullingSBToolbar = true;
    updated(50);
    EXPECT_TRUE(liftingAppScene);
    EXPECT_FALSE(pullingSBToolbar);
}

TEST_F(Pull, AToolbarWithoutHeightRoundsNothing) {
    bootInApplication(false);
    began();
    MAX_SIZE = 0;
    updated(50);
    EXPECT_EQ(sceneFrame(), (rect(0, -50, 375, 812)));
    EXPECT_EQ(sceneRadius(), 0);
}

TEST_F(Pull, TheLiftedSceneStaysAcrossLayoutPasses) {
    bootInApplication(false);
    began();
    ended(0);
    phone_->wait(1);
    sceneContainer().setFrame(rect(0, 0, 375, 812));
    SBMainDisplaySceneLayoutViewController::main().send<"viewDidLayoutSubviews">();
    EXPECT_EQ(sceneFrame(), (rect(0, -115, 375, 812)));
    EXPECT_EQ(sceneRadius(), 30);
}

TEST_F(Pull, TheSceneIsLiftedAgainAfterTheSystemHasLaidOut) {
    bootInApplication(false);
    began();
    ended(0);
    phone_->wait(1);
    phone_->clear();
    std::vector<int> laidOut;
    Spy<"setFrame:", CGRect>::on(
        class_getName(object_getClass(sceneContainer().get())), [&](Object view, CGRect) {
            if (view == sceneContainer())
                laidOut.push_back(phone_->calledCount("SBMainDisplaySceneLayoutViewController",
                                                      "viewDidLayoutSubviews"));
        });
    SBMainDisplaySceneLayoutViewController::main().send<"viewDidLayoutSubviews">();
    EXPECT_EQ(laidOut, (std::vector<int>{1}));
}

TEST_F(Pull, TheSystemsLayoutRunsAndEitherPassLiftsTheSceneAgain) {
    bootInApplication(false);
    began();
    ended(0);
    phone_->wait(1);
    auto layout = SBMainDisplaySceneLayoutViewController::main();
    phone_->clear();
    sceneContainer().setFrame(rect(0, 0, 375, 812));
    layout.send<"viewWillLayoutSubviews">();
    EXPECT_EQ(sceneFrame(), (rect(0, -115, 375, 812)));
    sceneContainer().setFrame(rect(0, 0, 375, 812));
    layout.send<"viewDidLayoutSubviews">();
    EXPECT_EQ(sceneFrame(), (rect(0, -115, 375, 812)));
    for (const char* pass : {"viewWillLayoutSubviews", "viewDidLayoutSubviews"})
        EXPECT_EQ(phone_->calledCount("SBMainDisplaySceneLayoutViewController", pass), 1) << pass;
}

// When it begins, when it is a hit, when the style is chosen; then at each update.
TEST_F(Pull, TheConnectivityRowIsLaidOutAtEachStep) {
    bootStrip();
    int above = 0, behind = 0;
    Spy<"layoutConnectivityButton">::on("VNTToolBarController", [&](Object toolbar) {
        ++(toolbar == VNTSBToolBarController::shared() ? above : behind);
    });
    began();
    EXPECT_EQ(above, 3);
    updated(50);
    EXPECT_EQ(above, 4);
    ended(-5.01);
    EXPECT_EQ(behind, 0);
    set("alwaysSpringBoardStyle", false);
    announceSettings();
    phone_->open("com.example.notes");
    above = behind = 0;
    began();
    EXPECT_EQ(above, 3);
    EXPECT_EQ(behind, 1);
    updated(50);
    EXPECT_EQ(above, 3);
    EXPECT_EQ(behind, 1);
}

TEST_F(Pull, AReportThatBeginsForgetsThePullBefore) {
    bootStrip();
    toolbar().setIsEnabled(true);
    liftingAppScene = true;
    pullingSBToolbar = true;
    began();
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_FALSE(liftingAppScene);
    EXPECT_FALSE(pullingSBToolbar);
}

TEST_F(Pull, AFlickDownLowersTheApplicationAgain) {
    bootInApplication(false);
    began();
    ended(-5.01);
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    EXPECT_EQ(sceneFrame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ(sceneRadius(), 0);
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    phone_->wait(0.1);
    EXPECT_EQ(backNow(), 1);
}

TEST_F(Pull, ASecondPullLowersTheLiftedApplication) {
    bootInApplication(false);
    began();
    ended(0);
    phone_->clear();
    began();
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
    EXPECT_EQ(sceneFrame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), 1);
    EXPECT_EQ(systemCalls("Began"), 0);
    EXPECT_EQ(posted("should-refresh-state"), 0);  // the zones are not asked
}

TEST_F(Pull, AlwaysInSpringBoardStyleTheApplicationNeverMoves) {
    bootInApplication(true);
    began();
    updated(100);
    EXPECT_EQ(sceneFrame(), (rect(0, 0, 375, 812)));
    EXPECT_EQ(toolbarY(), 712);
    ended(0);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
}

TEST_F(Pull, InLandscapeTheApplicationNeverMoves) {
    bootInApplication(false);
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    began();
    EXPECT_TRUE(pullingSBToolbar);
    EXPECT_FALSE(liftingAppScene);
    ended(0);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE(VNTToolBarController::shared().isEnabled());
}

TEST_F(Pull, LockingClosesTheToolbar) {
    bootStrip();
    began();
    ended(0);
    phone_->lock();
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
}

TEST_F(Pull, WhileOpenTheDeviceDoesNotTurn) {
    bootStrip();
    began();
    ended(0);
    phone_->clear();
    UIDevice::currentDevice().setOrientation(3, true);
    EXPECT_EQ(phone_->calledCount("UIDevice", "setOrientation:animated:"), 0);
    EXPECT_EQ(posted("com.ferolin.vantori.did-rotated"), 0);
    toolbar().dismiss();
    UIDevice::currentDevice().setOrientation(3, true);
    EXPECT_EQ(phone_->calledCount("UIDevice", "setOrientation:animated:"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori.did-rotated"), 1);
}

TEST_F(Pull, TheTrapezoidNeverRefuses) {
    bootStrip();
    auto trapezoid = Object(classObject(objc_getClass("SBFluidSwitcherGestureExclusionTrapezoid")))
                         .send<"alloc", Object>()
                         .send<"init", Object>();
    EXPECT_TRUE((trapezoid.send<"shouldBeginGestureAtStartingPoint:velocity:bounds:", bool>(
        CGPoint{0, 0}, CGPoint{0, 0}, rect(0, 0, 375, 812))));
    EXPECT_TRUE((trapezoid.send<"allowHorizontalSwipesOutsideTrapezoid", bool>()));
    trapezoid.send<"release">();
}

}  // namespace
}  // namespace vantori::tests
