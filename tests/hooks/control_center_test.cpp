// The Control Center replacement: the status bar's pull and the grabber's reports. W = 375, H = 812,
// the strip is 115 high.
#include "hooks/control_center.hpp"

#include "platform/control_center.hpp"
#include "simulator/hardware/configuration.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

using simulator::Orientation;
using simulator::PullPhase;

class ControlCenter : public LibraryPhone {
  protected:
    void bootReplacing(bool replaces, const char* device = "iPhone10,3") {
        phone_->device(device);
        set("replaceCC", replaces);
        set("layoutDirection", 1);
        boot();
        VNTSBToolBarController::shared().makeKeyWindow();
        phone_->clear();
    }
    static VNTSBToolBarController toolbar() { return VNTSBToolBarController::shared(); }
    static double toolbarY() { return toolbar().view().frame().origin.y; }
    long statusBarSystem() {
        return phone_->calledCount("SBControlCenterController", "_handleStatusBarPullDownGesture:");
    }
    long grabberSystem(const char* phase) {
        return phone_->calledCount(
            "SBControlCenterController",
            std::string("grabberTongue") + phase + "Pulling:withDistance:andVelocity:");
    }
    void pullStatusBar(double distance, double velocity) {
        phone_->statusBar(PullPhase::began, 300, 5, 0);
        phone_->statusBar(PullPhase::updated, 300, distance, 0);
        phone_->statusBar(PullPhase::ended, 300, distance, velocity);
    }
};

TEST_F(ControlCenter, ReplacedTheStatusBarRaisesTheToolbarByTheSameDistance) {
    bootReplacing(true);
    phone_->statusBar(PullPhase::began, 300, 10, 0);
    EXPECT_EQ(toolbarY(), 802);
    phone_->statusBar(PullPhase::updated, 300, 100, 0);
    EXPECT_EQ(toolbarY(), 712);
    phone_->statusBar(PullPhase::updated, 300, 230, 0);
    EXPECT_EQ(toolbarY(), 812 - 172.5);
    phone_->statusBar(PullPhase::ended, 300, 230, 0);
    EXPECT_EQ(toolbarY(), 697);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(statusBarSystem(), 0);
    EXPECT_TRUE(shouldHideCCScrollView);
}

TEST_F(ControlCenter, TheToolbarMovesBeforeTheTranslationIsTakenBack) {
    bootReplacing(true);
    std::vector<double> tops;
    std::vector<CGPoint> translations;
    Spy<"setTranslation:inView:", CGPoint, id>::on("SBSystemPanGestureRecognizer",
                                                   [&](Object, CGPoint translation, id) {
                                                       tops.push_back(toolbarY());
                                                       translations.push_back(translation);
                                                   });
    phone_->statusBar(PullPhase::began, 300, 10, 0);
    phone_->statusBar(PullPhase::updated, 300, 100, 0);
    EXPECT_EQ(tops, (std::vector<double>{812 - 10, 812 - 100}));
    EXPECT_EQ(translations, (std::vector<CGPoint>{{0, 0}, {0, 0}}));
}

TEST_F(ControlCenter, AReleasedStatusBarPullMovesTheToolbarBeforeItCountsAsOpen) {
    bootReplacing(true);
    phone_->statusBar(PullPhase::began, 300, 10, 0);
    std::vector<bool> opens;
    Spy<"updateYValueWithAnimation:", double>::on(
        "VNTSBToolBarController", [&](Object, double) { opens.push_back(toolbar().isEnabled()); });
    phone_->statusBar(PullPhase::ended, 300, 100, 0);
    EXPECT_EQ(opens, (std::vector<bool>{false}));
    EXPECT_TRUE(toolbar().isEnabled());
}

TEST_F(ControlCenter, ExactlyHalfTheHeightCloses) {
    bootReplacing(true);
    pullStatusBar(57.5, 0);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
}

TEST_F(ControlCenter, MoreThanHalfOpens) {
    bootReplacing(true);
    pullStatusBar(58, 0);
    EXPECT_TRUE(toolbar().isEnabled());
}

TEST_F(ControlCenter, AnUpwardFlickOfExactly15Closes) {
    bootReplacing(true);
    pullStatusBar(100, -15);
    EXPECT_FALSE(toolbar().isEnabled());
}

TEST_F(ControlCenter, ASlowerOneOpens) {
    bootReplacing(true);
    pullStatusBar(100, -14.9);
    EXPECT_TRUE(toolbar().isEnabled());
}

TEST_F(ControlCenter, NotReplacedTheSystemHandlesTheStatusBar) {
    bootReplacing(false, "iPhone10,1");
    shouldHideCCScrollView = true;
    pullStatusBar(100, 0);
    EXPECT_EQ(statusBarSystem(), 3);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 3);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_FALSE(shouldHideCCScrollView);
}

TEST_F(ControlCenter, NotReplacedItMayBeSeenAgainBeforeTheSystemHears) {
    bootReplacing(false, "iPhone10,1");
    listenTo({"com.ferolin.vantori-ccback"});
    Order::look() = [this] { Order::note(std::to_string(statusBarSystem())); };
    phone_->statusBar(PullPhase::began, 300, 5, 0);
    EXPECT_EQ(Order::events(), (std::vector<std::string>{"com.ferolin.vantori-ccback", "0"}));
}

TEST_F(ControlCenter, TheFirstGrabberPullOfAllIsSeen) {
    set("replaceCC", true);
    boot();
    phone_->controlCenterGrabber(PullPhase::began, 300, 10, 0);
    phone_->controlCenterGrabber(PullPhase::ended, 300, 100, 0);
    EXPECT_TRUE((toolbar().send<"vantoriHostWindow", Object>()));
    EXPECT_TRUE(toolbar().isEnabled());
}

// What an earlier pull left behind is forgotten, also where the report only closes what is open.
TEST_F(ControlCenter, AReportThatBeginsForgetsThePullBefore) {
    bootReplacing(true);
    toolbar().setIsEnabled(true);
    liftingAppScene = true;
    pullingSBToolbar = true;
    phone_->controlCenterGrabber(PullPhase::began, 300, 10, 0);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_FALSE(liftingAppScene);
    EXPECT_FALSE(pullingSBToolbar);
}

// "replaceCC" switched off, on a phone without a home button: the reports are the system's, whatever a pull
// left behind.
TEST_F(ControlCenter, ACancelledReportOfTheSystemsClosesNothing) {
    bootReplacing(true);
    replaceCC = false;
    toolbar().setIsEnabled(true);
    pullingSBToolbar = true;
    phone_->controlCenterGrabber(PullPhase::cancelled, 300, 10, 0);
    EXPECT_EQ(grabberSystem("Canceled"), 1);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE(pullingSBToolbar);
}

TEST_F(ControlCenter, ReplacedEveryGrabberPullIsAHitAndGivesNoHaptic) {
    bootReplacing(true);
    phone_->controlCenterGrabber(PullPhase::began, 370, 10, 0);
    EXPECT_TRUE(pullingSBToolbar);
    EXPECT_EQ(toolbarY(), 802);
    EXPECT_EQ(phone_->haptics(1), 0);
    EXPECT_EQ(posted("should-refresh-state"), 0);  // the zones are not asked
    phone_->controlCenterGrabber(PullPhase::updated, 370, 100, 0);
    EXPECT_EQ(toolbarY(), 712);
    phone_->controlCenterGrabber(PullPhase::ended, 370, 100, 0);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(grabberSystem("Began") + grabberSystem("Updated") + grabberSystem("Ended"), 0);
}

TEST_F(ControlCenter, WithAHomeButtonTheZonesDecide) {
    bootReplacing(false, "iPhone10,1");
    phone_->controlCenterGrabber(PullPhase::began, 300, 10, 0);
    phone_->controlCenterGrabber(PullPhase::updated, 300, 50, 0);
    phone_->controlCenterGrabber(PullPhase::ended, 300, 50, 0);
    EXPECT_EQ(grabberSystem("Began"), 1);
    EXPECT_EQ(grabberSystem("Updated"), 1);
    EXPECT_EQ(grabberSystem("Ended"), 1);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
    phone_->controlCenterGrabber(PullPhase::began, 60, 10, 0);
    EXPECT_TRUE(pullingSBToolbar);
    phone_->controlCenterGrabber(PullPhase::cancelled, 60, 10, 0);
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(grabberSystem("Canceled"), 1);
}

TEST_F(ControlCenter, AGrabberFlickCloses) {
    bootReplacing(true);
    phone_->controlCenterGrabber(PullPhase::began, 370, 10, 0);
    phone_->controlCenterGrabber(PullPhase::ended, 370, 100, -5.01);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
}

TEST_F(ControlCenter, TheFirstStatusBarPullOfAllIsSeen) {
    phone_->device("iPhone10,1");
    set("replaceCC", true);
    boot();
    pullStatusBar(400, 0);
    EXPECT_TRUE((toolbar().send<"vantoriHostWindow", Object>()));
    EXPECT_TRUE(
        (toolbar().page<VNTConnectivityBarViewController>().send<"hasBeenLayouted", bool>()));
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 667 - toolbar().suggestedY());
}

TEST_F(ControlCenter, ACancelledStatusBarPullIsJudgedLikeAReleasedOne) {
    bootReplacing(true);
    phone_->statusBar(PullPhase::began, 300, 5, 0);
    phone_->statusBar(PullPhase::cancelled, 300, 58, 0);
    EXPECT_TRUE(toolbar().isEnabled());
    phone_->statusBar(PullPhase::began, 300, 5, 0);
    phone_->statusBar(PullPhase::cancelled, 300, 57.5, 0);
    EXPECT_FALSE(toolbar().isEnabled());
}

struct Turned {
    Orientation orientation;
    double x, y;  // of the finger in the display
    double distance;
};
class StatusBarTurned : public ControlCenter, public testing::WithParamInterface<Turned> {};

// Upright y counts; turned right the screen's height (375 then) less x; else x. The strip stands at
// the screen's height less the distance.
TEST_P(StatusBarTurned, TheDistanceFollowsTheOrientation) {
    bootReplacing(true);
    phone_->open("com.example.notes");
    phone_->rotate(GetParam().orientation);
    phone_->wait(1);
    phone_->statusBar(PullPhase::began, GetParam().x, GetParam().y, 0);
    const double height = UIScreen::mainScreen().bounds().size.height;
    EXPECT_EQ(toolbarY(), height - GetParam().distance);
}

INSTANTIATE_TEST_SUITE_P(Orientations, StatusBarTurned,
                         testing::Values(Turned{Orientation::portrait, 300, 90, 90},
                                         Turned{Orientation::landscapeRight, 315, 700, 60},
                                         Turned{Orientation::landscapeLeft, 80, 700, 80},
                                         Turned{Orientation::upsideDown, 70, 700, 70}));

// The toolbar's top edge goes to the screen's height as it is turned (375), not to its long side.
TEST_F(ControlCenter, AStatusBarPullThatClosesInLandscapeLeavesItAtTheEdge) {
    bootReplacing(true);
    phone_->open("com.example.notes");
    phone_->rotate(Orientation::landscapeLeft);
    phone_->wait(1);
    phone_->statusBar(PullPhase::began, 80, 700, 0);
    phone_->statusBar(PullPhase::ended, 80, 700, 0);  // 80 of the grid's 215
    phone_->wait(1);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 375);
    phone_->statusBar(PullPhase::began, 80, 700, 0);
    phone_->statusBar(PullPhase::ended, 120, 700, 0);
    phone_->wait(1);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_NEAR(toolbarY(), 375 - 215, 1e-9);
}

TEST_F(ControlCenter, AFingerFromTheTopEdgeRaisesTheToolbar) {
    bootReplacing(true);
    phone_->touchDown(350, 3);
    phone_->touchMove(350, 90, 0.3);
    EXPECT_EQ(toolbarY(), 812 - 90);
    phone_->wait(0.3);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_FALSE((SBControlCenterController::shared().send<"isVisible", bool>()));
}

TEST_F(ControlCenter, SoDoesOneOnAPhoneWithAHomeButton) {
    bootReplacing(true, "iPhone10,1");
    phone_->touchDown(350, 3);
    phone_->touchMove(350, 90, 0.3);
    phone_->wait(0.3);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_TRUE(toolbar().isEnabled());
    EXPECT_EQ(statusBarSystem(), 0);
}

// Where the grabber's report is made to Control Center, and what becomes of it. The left zone alone is
// enabled: on 375 points it ends at 125.
struct Report {
    bool replaces;
    const char* device;
    double edge;
    bool toolbar;  // the toolbar takes the pull
};
class GrabberReports : public ControlCenter, public testing::WithParamInterface<Report> {
  protected:
    void begin() {
        bootReplacing(GetParam().replaces, GetParam().device);
        phone_->controlCenterGrabber(PullPhase::began, GetParam().edge, 20, 0);
    }
    // A phone without a home button that is not replaced has no hooks at all.
    static bool isHooked() {
        return GetParam().replaces || std::string(GetParam().device) == "iPhone10,1";
    }
};

TEST_P(GrabberReports, FromBeganToEnded) {
    begin();
    EXPECT_EQ(pullingSBToolbar, GetParam().toolbar);
    EXPECT_EQ(shouldHideCCScrollView, GetParam().toolbar);
    EXPECT_EQ(phone_->haptics(1), 0);
    const bool asksZones = isHooked() && !GetParam().replaces;
    EXPECT_EQ(posted("should-refresh-state"), asksZones ? 1 : 0);
    EXPECT_EQ(posted("com.ferolin.vantori-startmarquee"), asksZones && GetParam().toolbar ? 1 : 0);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), isHooked() && !GetParam().toolbar ? 1 : 0);
    phone_->controlCenterGrabber(PullPhase::updated, GetParam().edge, 100, 0);
    phone_->controlCenterGrabber(PullPhase::ended, GetParam().edge, 100, -5);
    phone_->wait(1);
    EXPECT_EQ(toolbar().isEnabled(), GetParam().toolbar);
    for (const char* phase : {"Began", "Updated", "Ended"}) {
        EXPECT_EQ(grabberSystem(phase), GetParam().toolbar ? 0 : 1) << phase;
    }
    EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), GetParam().toolbar ? 1 : 0);
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(phone_->haptics(1), 0);
}

TEST_P(GrabberReports, FromBeganToCancelled) {
    begin();
    phone_->controlCenterGrabber(PullPhase::cancelled, GetParam().edge, 100, 0);
    EXPECT_EQ(grabberSystem("Canceled"), 1);  // the system's is called in every case
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_EQ(phone_->darwinPostedCount("com.ferolin.vantori.Back-Now"),
              GetParam().toolbar ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Everywhere, GrabberReports,
    testing::Values(Report{true, "iPhone10,3", 60, true}, Report{true, "iPhone10,3", 300, true},
                    Report{true, "iPhone10,1", 60, true}, Report{true, "iPhone10,1", 300, true},
                    Report{false, "iPhone10,1", 60, true}, Report{false, "iPhone10,1", 300, false},
                    Report{false, "iPhone10,3", 60, false},
                    Report{false, "iPhone10,3", 300, false}));

// The platform's answer may change after the hooks were installed: from then on the system's own.
TEST_F(ControlCenter, WithoutAHomeButtonAPullIsLeftToTheSystem) {
    bootReplacing(false, "iPhone10,1");
    simulator::configuration().homeButton = false;
    phone_->controlCenterGrabber(PullPhase::began, 60, 20, 0);
    EXPECT_FALSE(pullingSBToolbar);
    EXPECT_FALSE(shouldHideCCScrollView);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 1);
    EXPECT_EQ(posted("should-refresh-state"), 0);
    EXPECT_EQ(grabberSystem("Began"), 1);
    pullingSBToolbar = true;
    phone_->controlCenterGrabber(PullPhase::ended, 60, 100, 0);
    EXPECT_EQ(grabberSystem("Ended"), 1);
    EXPECT_FALSE(toolbar().isEnabled());
}

TEST_F(ControlCenter, EachUpdateAsksWhereTheFingerIs) {
    bootReplacing(true);
    phone_->controlCenterGrabber(PullPhase::began, 370, 10, 0);
    phone_->clear();
    phone_->controlCenterGrabber(PullPhase::updated, 370, 50, 0);
    phone_->controlCenterGrabber(PullPhase::updated, 370, 60, 0);
    EXPECT_EQ(phone_->calledCount("SBControlCenterController", "_presentGestureLocationInView"), 2);
}

TEST_F(ControlCenter, AnOpenToolbarIsClosedByTheNextPull) {
    bootReplacing(true);
    pullStatusBar(100, 0);
    ASSERT_TRUE(toolbar().isEnabled());
    phone_->controlCenterGrabber(PullPhase::began, 370, 10, 0);
    EXPECT_FALSE(toolbar().isEnabled());
    EXPECT_EQ(toolbarY(), 812);
    EXPECT_FALSE(pullingSBToolbar);
}

TEST_F(ControlCenter, InApplicationStyleItLiftsTheApplication) {
    set("alwaysSpringBoardStyle", false);
    bootReplacing(true);
    phone_->open("com.example.notes");
    phone_->controlCenterGrabber(PullPhase::began, 370, 10, 0);
    EXPECT_TRUE(liftingAppScene);
    EXPECT_EQ(phone_->haptics(1), 0);
    phone_->controlCenterGrabber(PullPhase::ended, 370, 100, 0);
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
}

}  // namespace
}  // namespace vantori::tests
