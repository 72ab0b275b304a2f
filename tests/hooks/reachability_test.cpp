// Reachability's hooks, row by row, with the setting on and off.
#include "hooks/pull_reachability.hpp"

#include "pages/lifted_scene.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {
namespace {

class Reachability : public LibraryPhone {
  protected:
    void bootWith(bool on, bool springBoardStyle = true) {
        set("reachability", on);
        set("alwaysSpringBoardStyle", springBoardStyle);
        set("layoutDirection", 1);
        boot();
        VNTSBToolBarController::shared().makeKeyWindow();
        phone_->clear();
    }
    static Object make(const char* className) {
        Object cls(classObject(objc_getClass(className)));
        return cls.send<"alloc", Object>().send<"init", Object>().send<"autorelease", Object>();
    }
    static Object manager() { return make("SBReachabilityManager"); }
    static bool springBoardToolbarOpen() {
        return VNTSBToolBarController::shared().isEnabled() &&
               VNTSBToolBarController::shared().view().frame().origin.y == 812 - 115;
    }
    long systemCalls(const char* cls, const char* selector) {
        return phone_->calledCount(cls, selector);
    }
};

TEST_F(Reachability, OnTheGestureOpensTheToolbarAndDoesNotBegin) {
    bootWith(true);
    Object gestures = make("SBFluidSwitcherGestureManager");
    const bool system = [&] {
        reachability = false;
        const bool answer = gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object());
        reachability = true;
        return answer;
    }();
    EXPECT_FALSE((gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object())));
    EXPECT_EQ(springBoardToolbarOpen(), system);
    EXPECT_EQ(systemCalls("SBFluidSwitcherGestureManager", "_shouldBeginReachabilityGesture:"), 2);
}

TEST_F(Reachability, OnTogglingOpensTheToolbar) {
    bootWith(true);
    manager().send<"toggleReachability">();
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_EQ(systemCalls("SBReachabilityManager", "toggleReachability"), 0);
}

TEST_F(Reachability, OnTogglingTheModeOpensTheToolbar) {
    bootWith(true);
    manager().send<"_toggleReachabilityMode">();
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_EQ(systemCalls("SBReachabilityManager", "_toggleReachabilityMode"), 0);
}

TEST_F(Reachability, OnTheHomeBarsSwipeOpensTheToolbar) {
    bootWith(true);
    make("SBBarSwipeAffordanceView").send<"_handleReachabilityPanGesture:">(Object());
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_EQ(systemCalls("SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:"), 0);
}

TEST_F(Reachability, OnInApplicationStyleTheSceneIsLifted) {
    bootWith(true, false);
    manager().send<"toggleReachability">();
    EXPECT_TRUE(VNTToolBarController::shared().isEnabled());
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_EQ(sceneContainer().frame(), (rect(0, -115, 375, 812)));
    EXPECT_EQ(sceneContainer().layer().cornerRadius(), 30);
}

TEST_F(Reachability, OffTheSystemsRunsWhileItMay) {
    bootWith(false);
    manager().send<"toggleReachability">();
    EXPECT_GE(systemCalls("SBReachabilityManager", "toggleReachability"), 1);
    make("SBBarSwipeAffordanceView").send<"_handleReachabilityPanGesture:">(Object());
    EXPECT_EQ(systemCalls("SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:"), 1);
    EXPECT_FALSE(springBoardToolbarOpen());
}

TEST_F(Reachability, OffNothingRunsWhileADismissalIsUnderWay) {
    bootWith(false);
    VNTToolBarController::shared().setCanToggleReachability(false);
    manager().send<"toggleReachability">();
    manager().send<"_toggleReachabilityMode">();
    make("SBBarSwipeAffordanceView").send<"_handleReachabilityPanGesture:">(Object());
    EXPECT_EQ(systemCalls("SBReachabilityManager", "toggleReachability"), 0);
    EXPECT_EQ(systemCalls("SBReachabilityManager", "_toggleReachabilityMode"), 0);
    EXPECT_EQ(systemCalls("SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:"), 0);
    EXPECT_FALSE((manager().send<"reachabilityEnabled", bool>()));
}

TEST_F(Reachability, EnabledIsTheSystemsAnswerWhileItMay) {
    bootWith(true);
    EXPECT_TRUE((manager().send<"reachabilityEnabled", bool>()));
    VNTToolBarController::shared().setCanToggleReachability(false);
    EXPECT_FALSE((manager().send<"reachabilityEnabled", bool>()));
}

}  // namespace
}  // namespace vantori::tests
