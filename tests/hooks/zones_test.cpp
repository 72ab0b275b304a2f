// The zones of the bottom edge, to the half point. On a phone 375 points wide the thirds end at 125
// and 250; in landscape the long side of 812 points is cut at 270 2/3 and 541 1/3.
#include "hooks/gesture_zones.hpp"

#include "settings/variables.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

struct Zones {
    bool left, middle, right;
    friend void PrintTo(const Zones& z, std::ostream* out) {
        *out << (z.left ? "L" : "-") << (z.middle ? "M" : "-") << (z.right ? "R" : "-");
    }
};

class ZonesOf : public LibraryPhone, public testing::WithParamInterface<Zones> {
  protected:
    void switchZones() {
        set("leftGestureEnabled", GetParam().left);
        set("middleGestureEnabled", GetParam().middle);
        set("rightGestureEnabled", GetParam().right);
        boot();
    }
    // One accepted pull posts the marquee's start, a refused one its stop.
    void expectHit(double position, bool hit) {
        phone_->clear();
        EXPECT_EQ(isPointInRangeX(position), hit) << "at " << position;
        EXPECT_EQ(posted("com.ferolin.vantori-startmarquee"), hit ? 1 : 0);
        EXPECT_EQ(posted("com.ferlin.vantori-finish-launching"), hit ? 1 : 0);
        EXPECT_EQ(posted("com.ferolin.vantori-finish-launching"), 0);
        EXPECT_EQ(posted("com.ferolin.vantori-stopmarquee"), hit ? 0 : 1);
        EXPECT_EQ(posted("should-refresh-state"), 1);
        EXPECT_EQ(posted("should-refresh-value"), 1);
    }
};

TEST_P(ZonesOf, PortraitAreThirdsOfTheWidth) {
    switchZones();
    const auto [left, middle, right] = GetParam();
    expectHit(0, left);
    expectHit(124.5, left);
    expectHit(125, left);
    expectHit(125.5, middle);
    expectHit(187.5, middle);
    expectHit(249.5, middle);
    expectHit(250, right);
    expectHit(250.5, right);
    expectHit(375, right);
}

TEST_P(ZonesOf, LandscapeInFrontOfAnApplicationAreThirdsOfTheLongSide) {
    switchZones();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    const auto [left, middle, right] = GetParam();
    expectHit(270.5, left);
    expectHit(271, middle);
    expectHit(541, middle);
    expectHit(541.5, right);
    expectHit(811, right);
}

TEST_P(ZonesOf, OnTheHomeScreenInLandscapeNothingOpens) {
    switchZones();
    phone_->rotate(simulator::Orientation::landscapeLeft);
    for (double position : {0.0, 200.0, 406.0, 800.0}) expectHit(position, false);
}

INSTANTIATE_TEST_SUITE_P(Combinations, ZonesOf,
                         testing::Values(Zones{false, false, false}, Zones{true, false, false},
                                         Zones{false, true, false}, Zones{false, false, true},
                                         Zones{true, true, false}, Zones{true, false, true},
                                         Zones{false, true, true}, Zones{true, true, true}));

class ZoneTest : public LibraryPhone {};

TEST_F(ZoneTest, EveryAttemptMakesTheToolbarsWindow) {
    set("leftGestureEnabled", false);
    boot();
    EXPECT_FALSE(VNTSBToolBarController::shared().vantoriHostWindow());
    EXPECT_FALSE(isPointInRangeX(10));
    EXPECT_TRUE(VNTSBToolBarController::shared().vantoriHostWindow());
}

TEST_F(ZoneTest, PostsInTheirOrder) {
    boot();
    listenTo({"should-refresh-state", "should-refresh-value", "com.ferlin.vantori-finish-launching",
              "com.ferolin.vantori-startmarquee", "com.ferolin.vantori-stopmarquee"});
    const std::vector<std::string> hit = {"should-refresh-state", "should-refresh-value",
                                          "com.ferlin.vantori-finish-launching",
                                          "com.ferolin.vantori-startmarquee"};
    const std::vector<std::string> miss = {"should-refresh-state", "should-refresh-value",
                                           "com.ferolin.vantori-stopmarquee"};
    EXPECT_TRUE(isPointInRangeX(10));
    EXPECT_EQ(Order::events(), hit);
    Order::forget();
    EXPECT_FALSE(isPointInRangeX(370));
    EXPECT_EQ(Order::events(), miss);
}

// Buttons, then the window, before anything is posted.
TEST_F(ZoneTest, IsReadyBeforeAnythingIsRefreshed) {
    boot();
    bool isReady = false;
    VNTCCTogglesBarViewController buttons =
        VNTSBToolBarController::shared().ccTogglesViewController();
    ASSERT_FALSE((buttons.send<"hasSetupButtons", bool>()));
    Spy<"makeKeyWindow">::on("VNTSBToolBarController", [&](Object) {
        isReady = buttons.send<"hasSetupButtons", bool>() && posted("should-refresh-state") == 0;
    });
    isPointInRangeX(10);
    EXPECT_TRUE(isReady);
}

TEST_F(ZoneTest, RefusesWhileTheApplicationsToolbarIsOpen) {
    boot();
    VNTToolBarController::shared().setIsEnabled(true);
    EXPECT_TRUE(isPointInRangeX(10));  // there is no application to close it for
    phone_->open("com.example.notes");
    VNTToolBarController::shared().setIsEnabled(true);
    EXPECT_FALSE(isPointInRangeX(10));
    VNTToolBarController::shared().setIsEnabled(false);
    EXPECT_TRUE(isPointInRangeX(10));
}

TEST_F(ZoneTest, BeforeLaunchTheEdgeSplitsInHalvesAndTheMiddleIsEmpty) {
    set("middleGestureEnabled", true);
    boot();
    middleZoneWidth = 0;
    EXPECT_TRUE(isPointInRangeX(187.5));
    EXPECT_FALSE(isPointInRangeX(188));
    leftGestureEnabled = false;
    EXPECT_FALSE(isPointInRangeX(187.5));
}

TEST_F(ZoneTest, TheSecondRuleComparesTheLeftZoneWithTheMiddleWidth) {
    boot();
    EXPECT_FALSE(isPointInRange(10));  // no application in front
    phone_->open("com.example.notes");
    phone_->clear();
    EXPECT_TRUE(isPointInRange(125));
    EXPECT_FALSE(isPointInRange(125.5));
    middleZoneWidth = 75;  // the left zone ends at 150, and is still measured by 75
    EXPECT_TRUE(isPointInRange(75));
    EXPECT_FALSE(isPointInRange(100));
    EXPECT_EQ(posted("should-refresh-state"), 4);
    EXPECT_EQ(posted("should-refresh-value"), 0);
    leftGestureEnabled = false;
    EXPECT_FALSE(isPointInRange(75));
}

TEST_F(ZoneTest, TheSecondRuleRefusesTurnedOrWhileTheApplicationsToolbarIsOpen) {
    boot();
    phone_->open("com.example.notes");
    EXPECT_TRUE(isPointInRange(10));
    VNTToolBarController::shared().setIsEnabled(true);
    EXPECT_FALSE(isPointInRange(10));
    VNTToolBarController::shared().setIsEnabled(false);
    phone_->rotate(simulator::Orientation::landscapeRight);
    phone_->wait(1);
    EXPECT_FALSE(isPointInRange(10));
}

// The middle is 75 wide on a screen of 375: it lies between 150 and 225, neither border in it.
TEST_F(ZoneTest, TheSecondRuleLeavesTheBordersOfTheMiddleToTheRight) {
    boot();
    phone_->open("com.example.notes");
    leftGestureEnabled = false;
    middleGestureEnabled = true;
    middleZoneWidth = 75;
    EXPECT_FALSE(isPointInRange(150));
    EXPECT_TRUE(isPointInRange(150.5));
    EXPECT_TRUE(isPointInRange(224.5));
    EXPECT_FALSE(isPointInRange(225));
    middleGestureEnabled = false;
    rightGestureEnabled = true;
    EXPECT_FALSE(isPointInRange(224.5));
    EXPECT_TRUE(isPointInRange(225));
}

}  // namespace
}  // namespace vantori::tests
