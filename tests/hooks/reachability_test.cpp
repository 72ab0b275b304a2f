// Reachability's hooks, row by row, with the setting on and off.
#include "hooks/pull_reachability.hpp"

#include "pages/lifted_scene.hpp"
#include "simulator/runtime/journal.hpp"
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
    EXPECT_FALSE((gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object())));
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_EQ(systemCalls("SBFluidSwitcherGestureManager", "_shouldBeginReachabilityGesture:"), 1);
}

// The system asks whether reachability is enabled, and during a dismissal it is not.
TEST_F(Reachability, OnAGestureThatTheSystemRefusesOpensNothing) {
    bootWith(true);
    VNTToolBarController::shared().setCanToggleReachability(false);
    Object gestures = make("SBFluidSwitcherGestureManager");
    EXPECT_FALSE((gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object())));
    EXPECT_EQ(systemCalls("SBFluidSwitcherGestureManager", "_shouldBeginReachabilityGesture:"), 1);
    EXPECT_FALSE(springBoardToolbarOpen());
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
}

TEST_F(Reachability, OffTheGestureIsAnsweredByTheSystem) {
    bootWith(false);
    Object gestures = make("SBFluidSwitcherGestureManager");
    EXPECT_TRUE((gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object())));
    VNTToolBarController::shared().setCanToggleReachability(false);
    EXPECT_FALSE((gestures.send<"_shouldBeginReachabilityGesture:", bool>(Object())));
    EXPECT_FALSE(VNTSBToolBarController::shared().isEnabled());
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

TEST_F(Reachability, TheSystemMayRefuseByItself) {
    bootWith(true);
    System<bool()> refusing(nullptr, nullptr, nullptr);
    EXPECT_FALSE(reachabilityEnabled(refusing, Object()));
}

TEST_F(Reachability, OnTheToolbarMovesBeforeItCountsAsOpen) {
    bootWith(true);
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    auto row = toolbar.page<VNTConnectivityBarViewController>();
    EXPECT_FALSE((row.send<"hasBeenLayouted", bool>()));
    std::vector<bool> opens;
    Spy<"updateYValueWithAnimation:", double>::on(
        "VNTSBToolBarController", [&](Object, double) { opens.push_back(toolbar.isEnabled()); });
    manager().send<"toggleReachability">();
    EXPECT_EQ(opens, (std::vector<bool>{false}));
    EXPECT_TRUE((row.send<"hasBeenLayouted", bool>()));
}

// The swipe down beside the home bar, on phones as real ones are.
class RealReachability : public Reachability {
  protected:
    void bootReal(const char* system, bool on) {
        phone_->system(system);
        phone_->real();
        bootWith(on);
    }
    void swipe() {
        phone_->touchDown(187, 785);
        phone_->touchMove(187, 805, 0.1);
        phone_->touchUp();
        phone_->wait(1);
    }
    static Object shared() {
        return Object(classObject(objc_getClass("SBReachabilityManager")))
            .send<"sharedInstance", Object>();
    }
    static bool isLowered() { return shared().send<"reachabilityModeActive", bool>(); }
    // The owner of the swipe's action on this system.
    static Object owner() {
        Object manager = shared();
        const bool later = manager.respondsTo(selector<"_activateReachability:">());
        return later ? manager : make("SBFluidSwitcherGestureManager");
    }
    static Strong<UIPanGestureRecognizer> gestureIn(long state) {
        auto gesture = create<UIPanGestureRecognizer>();
        gesture.send<"setState:">(1L);
        if (state != 1) gesture.send<"setState:">(state);
        return gesture;
    }
};

class SwipeOnSystem : public RealReachability, public testing::WithParamInterface<const char*> {};

TEST_P(SwipeOnSystem, OnTheSwipeOpensTheToolbarAndTheScreenStays) {
    bootReal(GetParam(), true);
    swipe();
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_FALSE(isLowered());
    EXPECT_FALSE(phone_->crashed());
}

TEST_P(SwipeOnSystem, OffTheScreenComesDown) {
    bootReal(GetParam(), false);
    swipe();
    EXPECT_FALSE(springBoardToolbarOpen());
    EXPECT_TRUE(isLowered());
    EXPECT_FALSE(phone_->crashed());
}

TEST_P(SwipeOnSystem, OffNothingComesDownDuringADismissal) {
    bootReal(GetParam(), false);
    VNTToolBarController::shared().setCanToggleReachability(false);
    swipe();
    EXPECT_FALSE(isLowered());
}

// Where the gesture is let begin all the same: only its end opens, and the system's is not run.
TEST_P(SwipeOnSystem, OnTheActionOpensWhenTheGestureHasEnded) {
    bootReal(GetParam(), true);
    owner().send<"_activateReachability:">(gestureIn(UIGestureRecognizer::began));
    EXPECT_FALSE(springBoardToolbarOpen());
    owner().send<"_activateReachability:">(gestureIn(UIGestureRecognizer::ended));
    EXPECT_TRUE(springBoardToolbarOpen());
    owner().send<"_activateReachability:">(gestureIn(UIGestureRecognizer::ended));
    EXPECT_TRUE(springBoardToolbarOpen());  // bears being opened twice
    EXPECT_FALSE(isLowered());
}

TEST_P(SwipeOnSystem, OffTheSystemFollowsTheGestureFromItsBeginning) {
    bootReal(GetParam(), false);
    Object asked = owner();
    phone_->clear();
    asked.send<"_activateReachability:">(gestureIn(UIGestureRecognizer::began));
    EXPECT_EQ(systemCalls(class_getName(object_getClass(asked.get())), "_activateReachability:"),
              1);
}

INSTANTIATE_TEST_SUITE_P(Systems, SwipeOnSystem,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "14.2", "14.8"));

TEST_F(RealReachability, OnElevenTheModeIsToggledUnderAnotherName) {
    bootReal("11.4", true);
    shared().send<"_toggleReachabilityModeWithRequestingObserver:">(Object());
    EXPECT_TRUE(springBoardToolbarOpen());
    EXPECT_FALSE(isLowered());
}

TEST_F(RealReachability, OnElevenTheObserverIsHandedThrough) {
    bootReal("11.4", false);
    auto observer = create<Object>();
    shared().send<"_toggleReachabilityModeWithRequestingObserver:">(observer);
    EXPECT_TRUE(isLowered());
    auto last = simulator::Journal::last("SBReachabilityManager",
                                         "_toggleReachabilityModeWithRequestingObserver:");
    ASSERT_TRUE(last);
    EXPECT_TRUE(std::get<Strong<Object>>(last->at(0)) == observer);
}

TEST_F(RealReachability, AFingerThatGoesNowhereAsksForNothing) {
    bootReal("14.2", true);
    phone_->touchDown(187, 785);
    phone_->touchMove(187, 790, 0.1);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_FALSE(springBoardToolbarOpen());
    EXPECT_FALSE(isLowered());
}

}  // namespace
}  // namespace vantori::tests
