// The switcher's appearing puts a lifted application back, on phones as real ones are.
#include "hooks/hook_switcher.hpp"

#include "pages/lifted_scene.hpp"
#include "platform/definition.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

class RealSwitcher : public LibraryPhone {
  protected:
    void lift(const char* system) {
        phone_->system(system);
        phone_->real();
        lift();
    }
    // An application in front, lifted by the open toolbar.
    void lift() {
        set("alwaysSpringBoardStyle", false);
        set("layoutDirection", 1);
        boot();
        phone_->open("com.example.notes");
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 115, 0);
        phone_->wait(1);
    }
    static Object switcher() {
        Object cls(classObject(objc_getClass("SBMainSwitcherViewController")));
        return cls.send<"sharedInstance", Object>();
    }
    static void activate() {
        Object shared = switcher();
        shared.sendIfAnswered<"activateSwitcherNoninteractivelyWithSource:", bool>(1L);
        shared.sendIfAnswered<"activateMainSwitcherNoninteractivelyWithSource:animated:", bool>(
            1L, true);
    }
    static bool isVisible() {
        Object shared = switcher();
        return shared.sendIfAnswered<"isVisible", bool>() ||
               shared.sendIfAnswered<"isAnySwitcherVisible", bool>();
    }
    static double sceneTop() { return sceneContainer().frame().origin.y; }
    static double sceneRadius() { return sceneContainer().layer().cornerRadius(); }
};

class SwitcherOnSystem : public RealSwitcher, public testing::WithParamInterface<const char*> {};

TEST_P(SwitcherOnSystem, PutsTheLiftedApplicationBack) {
    lift(GetParam());
    EXPECT_EQ(sceneTop(), -115);
    EXPECT_EQ(sceneRadius(), 30);
    activate();
    EXPECT_TRUE(isVisible());
    EXPECT_EQ(sceneTop(), 0);
    EXPECT_EQ(sceneRadius(), 0);
    phone_->wait(1);
    EXPECT_FALSE(phone_->crashed());
}

// Opening another application is a transition too, of which this is no part.
TEST_P(SwitcherOnSystem, OtherTransitionsLeaveItLifted) {
    lift(GetParam());
    phone_->open("com.example.maps");
    EXPECT_EQ(sceneTop(), -115);
    phone_->wait(1);
    EXPECT_FALSE(isVisible());
}

TEST_P(SwitcherOnSystem, IsHookedUnderOneName) {
    lift(GetParam());
    const bool later =
        phone_->hooked("SBMainSwitcherViewController",
                       "layoutStateTransitionCoordinator:transitionDidBeginWithTransitionContext:");
    const bool earlier =
        phone_->hooked("SBMainSwitcherViewController",
                       "sceneLayoutController:didBeginLayoutStateTransitionWithContext:");
    EXPECT_NE(later, earlier);
}

INSTANTIATE_TEST_SUITE_P(Systems, SwitcherOnSystem,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "14.2", "14.8"));

// On the phone that is not real the container of its cards is enough, and nothing else is hooked.
TEST_F(RealSwitcher, TheContainersPhoneHooksNothingElse) {
    boot();
    EXPECT_TRUE(phone_->hooked("SBSwitcherContainerView", "didMoveToWindow"));
    EXPECT_EQ(objc_getClass("SBMainSwitcherViewController"), nullptr);
}

TEST_F(RealSwitcher, TheContainersComingPutsTheLiftedApplicationBack) {
    lift();
    ASSERT_EQ(sceneTop(), -115);
    switcherContainerDidMove(System<void()>(nullptr, nullptr, nullptr), Object());
    EXPECT_EQ(sceneTop(), 0);
    EXPECT_EQ(sceneRadius(), 0);
}

TEST_F(RealSwitcher, TheContainerMovesBeforeTheApplication) {
    lift();
    Object cls(classObject(objc_getClass("SBSwitcherContainerView")));
    auto container = adopted(as<UIView>(cls.send<"new", Object>()));
    phone_->clear();
    std::vector<int> moved;
    Spy<"setFrame:", CGRect>::on(
        class_getName(object_getClass(sceneContainer().get())), [&](Object, CGRect) {
            moved.push_back(phone_->calledCount("SBSwitcherContainerView", "didMoveToWindow"));
        });
    container.send<"didMoveToWindow">();
    EXPECT_EQ(moved, (std::vector<int>{1}));
    EXPECT_EQ(sceneTop(), 0);
}

// A state of the phone's layout, and a transition from one to another, by the names of both systems.
struct LayoutState : Object {
    static constexpr FixedString name{"VNTTestLayoutState"};
    using Object::Object;
};
struct LayoutMode {
    long mode;
};
struct Transition : Object {
    static constexpr FixedString name{"VNTTestTransition"};
    using Object::Object;
};
struct Ends {
    Strong<Object> from, to;
};

long modeOf(LayoutState self) { return stateOf<LayoutMode>(self).mode; }
Object originOf(Transition self) { return stateOf<Ends>(self).from; }
Object targetOf(Transition self) { return stateOf<Ends>(self).to; }

class Transitions : public RealSwitcher {
  protected:
    static void defineClasses() {
        define<LayoutState, Object, LayoutMode>().method<"unlockedEnvironmentMode", &modeOf>();
        define<Transition, Object, Ends>()
            .method<"fromLayoutState", &originOf>()
            .method<"toLayoutState", &targetOf>()
            .method<"previousLayoutState", &originOf>()
            .method<"layoutState", &targetOf>();
    }
    static Strong<Object> inFront(long mode) {
        auto state = create<LayoutState>();
        stateOf<LayoutMode>(state).mode = mode;
        return retained(Object(state));
    }
    static Strong<Transition> transition(long from, long to) {
        auto made = create<Transition>();
        stateOf<Ends>(made) = {inFront(from), inFront(to)};
        return made;
    }
};

constexpr long homeScreen = 1, theSwitcher = 2, anApplication = 3;

// Whoever is in the switcher already is not brought there.
TEST_F(Transitions, OnlyThoseToTheSwitcherPutItBack) {
    lift("14.2");
    defineClasses();
    System<void(Object, Object)> system(nullptr, nullptr, nullptr);
    const auto begin = [&](auto transitionBegan, long from, long to) {
        springScene(115, 30);
        transitionBegan(system, Object(), Object(), transition(from, to));
        return sceneTop();
    };
    for (auto began : {&layoutTransitionBegan, &sceneTransitionBegan}) {
        EXPECT_EQ(begin(began, anApplication, theSwitcher), 0);
        EXPECT_EQ(begin(began, homeScreen, theSwitcher), 0);
        EXPECT_EQ(begin(began, theSwitcher, theSwitcher), -115);
        EXPECT_EQ(begin(began, theSwitcher, anApplication), -115);
        EXPECT_EQ(begin(began, anApplication, homeScreen), -115);
    }
}

struct VisibleSwitcher : Object {
    static constexpr FixedString name{"VNTTestSwitcher"};
    using Object::Object;
};
bool isSeen(VisibleSwitcher) { return true; }

// On 11 and 12 it is enough that the switcher says that it is seen.
TEST_F(Transitions, ASwitcherThatIsSeenPutsItBack) {
    lift("12.4");
    define<VisibleSwitcher, Object>().method<"isVisible", &isSeen>();
    System<void(Object, Object)> system(nullptr, nullptr, nullptr);
    sceneTransitionBegan(system, create<VisibleSwitcher>(), Object(), "no context"_ns);
    EXPECT_EQ(sceneTop(), 0);
}

// Contexts that do not say what comes, or say it to no purpose, move nothing.
TEST_F(RealSwitcher, AContextThatSaysNothingMovesNothing) {
    lift("14.2");
    System<void(Object, Object)> system(nullptr, nullptr, nullptr);
    layoutTransitionBegan(system, switcher(), Object(), Object());
    layoutTransitionBegan(system, switcher(), Object(), "no context"_ns);
    sceneTransitionBegan(system, Object(), Object(), "no context"_ns);
    EXPECT_EQ(sceneTop(), -115);
}

}  // namespace
}  // namespace vantori::tests
