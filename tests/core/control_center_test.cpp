// The Control Center replacement: the status bar's pull and the grabber's reports. W = 375, H = 812,
// the strip is 115 high.
#include "core/control_center.hpp"

#include "tests/core/library_phone.hpp"

namespace vantori::tests {
namespace {

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
    pullStatusBar(100, 0);
    EXPECT_EQ(statusBarSystem(), 3);
    EXPECT_EQ(posted("com.ferolin.vantori-ccback"), 3);
    EXPECT_FALSE(toolbar().isEnabled());
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

}  // namespace
}  // namespace vantori::tests
