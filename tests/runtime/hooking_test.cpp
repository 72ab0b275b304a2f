// MSHookMessageEx, case by case: own methods, inherited ones with siblings and superclass left
// alone, missing ones, no class at all, twice.
#include "simulator/runtime/hooking.hpp"

#include <gtest/gtest.h>

#include "simulator/runtime/stand_in.hpp"
#include "simulator/runtime/system_log.hpp"

namespace {

using platform::create;
using platform::Object;

struct Parent : Object {
    static constexpr platform::FixedString name{"HookingTestParent"};
    using Object::Object;
};
struct Child : Parent {
    static constexpr platform::FixedString name{"HookingTestChild"};
    using Parent::Parent;
};
struct Sibling : Parent {
    static constexpr platform::FixedString name{"HookingTestSibling"};
    using Parent::Parent;
};

int number(Object) { return 1; }
int ownNumber(Object) { return 2; }

template <int increment>
struct Replacement {
    static inline IMP saved = nullptr;
    static int run(id self, SEL command) {
        return increment + reinterpret_cast<int (*)(id, SEL)>(saved)(self, command);
    }
    static IMP imp() { return reinterpret_cast<IMP>(&run); }
};

class Hooking : public testing::Test {
  protected:
    void SetUp() override {
        simulator::standIn<Parent, Object>().method<"number", &number>();
        simulator::standIn<Child, Parent>().method<"own", &ownNumber>();
        simulator::standIn<Sibling, Parent>();
    }
    template <class T, platform::FixedString message>
    int ask() {
        auto object = create<T>();
        return object.template send<message, int>();
    }
    platform::AutoreleasePool pool_;
};

TEST_F(Hooking, OwnMethodIsSwapped) {
    using R = Replacement<10>;
    MSHookMessageEx(platform::classOf<Child>(), sel_registerName("own"), R::imp(), &R::saved);
    EXPECT_EQ((ask<Child, "own">()), 12);
    EXPECT_TRUE(simulator::wasHooked("HookingTestChild", "own"));
}

TEST_F(Hooking, InheritedMethodIsOverriddenInThatClassOnly) {
    using R = Replacement<10>;
    EXPECT_EQ((ask<Child, "number">()), 1);
    MSHookMessageEx(platform::classOf<Child>(), sel_registerName("number"), R::imp(), &R::saved);
    EXPECT_EQ((ask<Child, "number">()), 11);
    EXPECT_EQ((ask<Sibling, "number">()), 1);
    EXPECT_EQ((ask<Parent, "number">()), 1);
}

TEST_F(Hooking, TheLaterHookRunsFirstAndReachesTheEarlier) {
    using First = Replacement<10>;
    using Second = Replacement<100>;
    Class cls = platform::classOf<Child>();
    MSHookMessageEx(cls, sel_registerName("own"), First::imp(), &First::saved);
    MSHookMessageEx(cls, sel_registerName("own"), Second::imp(), &Second::saved);
    EXPECT_EQ(Second::saved, First::imp());
    EXPECT_EQ((ask<Child, "own">()), 112);
}

TEST_F(Hooking, MissingMethodInstallsNothingAndWarns) {
    auto sentinel = reinterpret_cast<IMP>(&ownNumber);
    IMP saved = sentinel;
    MSHookMessageEx(platform::classOf<Child>(), sel_registerName("nobodyHasThis"),
                    Replacement<1>::imp(), &saved);
    EXPECT_EQ(saved, sentinel);
    EXPECT_FALSE(Child(create<Child>().get()).respondsTo(sel_registerName("nobodyHasThis")));
    EXPECT_EQ(simulator::SystemLog::shared().count("nobodyHasThis"), 1);
    ASSERT_EQ(simulator::handovers().size(), 1u);
    EXPECT_FALSE(simulator::handovers()[0].installed);
}

TEST_F(Hooking, NoClassInstallsNothingAndIsStillCounted) {
    IMP saved = nullptr;
    MSHookMessageEx(nullptr, sel_registerName("own"), Replacement<1>::imp(), &saved);
    EXPECT_EQ(saved, nullptr);
    ASSERT_EQ(simulator::handovers().size(), 1u);
    EXPECT_EQ(simulator::handovers()[0].className, "");
    EXPECT_FALSE(simulator::wasHooked("", "own"));
    EXPECT_EQ(simulator::SystemLog::shared().count("nil class"), 1);
}

}  // namespace
