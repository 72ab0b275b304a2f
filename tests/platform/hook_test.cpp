// Hooks on own, inherited and missing methods. The runtime's own replacing function searches the
// hierarchy, so that replacing an inherited method would change the superclass and every sibling:
// each case looks at those as well.
#include "platform/hook.hpp"

#include <gtest/gtest.h>

#include "tests/platform/animal.hpp"

namespace platform::tests {
namespace {

class Hook : public testing::Test {
  protected:
    Hook() { registerAnimals(); }
    template <class T>
    static long depth() {
        return create<T>().template send<"depth", long>();
    }
    template <class T>
    static long leap() {
        return create<T>().template send<"leap", long>();
    }
    AutoreleasePool pool_;
};

long plusThousand(System<long()> system, Object) { return system() + 1000; }
long timesTwo(System<long()> system, Object) { return system() * 2; }
CGRect shifted(System<CGRect(CGRect, double)> system, Object, CGRect frame, double by) {
    CGRect result = system(frame, by);
    result.origin.x += 100;
    return result;
}

TEST_F(Hook, OnAnOwnMethodReachesTheSystemsAndLeavesTheSuperclass) {
    EXPECT_EQ(depth<Cat>(), 11);
    HookRow row = hook<"VNTTestCat", "depth", &plusThousand>();
    install(row);
    EXPECT_EQ(depth<Cat>(), 1011);
    EXPECT_EQ(depth<Kitten>(), 1111);  // its super send runs the hook
    EXPECT_EQ(depth<Animal>(), 1);
    EXPECT_EQ(depth<Dog>(), 1);
    EXPECT_TRUE(row.record->methodFound);
    EXPECT_FALSE(row.record->inherited);
    EXPECT_EQ(row.record->calls, 2u);
}

TEST_F(Hook, OnAnInheritedMethodLeavesSuperclassAndSiblingsUntouched) {
    HookRow row = hook<"VNTTestCat", "leap", &plusThousand>();
    install(row);
    EXPECT_EQ(leap<Cat>(), 1003);
    EXPECT_EQ(leap<Kitten>(), 1003);
    EXPECT_EQ(leap<Animal>(), 3);
    EXPECT_EQ(leap<Dog>(), 3);
    EXPECT_TRUE(row.record->methodFound);
    EXPECT_TRUE(row.record->inherited);
}

TEST_F(Hook, OnAMissingMethodInstallsNothing) {
    HookRow row = hook<"VNTTestCat", "fly", &plusThousand>();
    install(row);
    EXPECT_FALSE(create<Cat>().respondsTo(selector<"fly">()));
    EXPECT_TRUE(row.record->classFound);
    EXPECT_FALSE(row.record->methodFound);
    EXPECT_EQ(row.record->saved, nullptr);
}

TEST_F(Hook, OnAMissingClassInstallsNothing) {
    HookRow row = hook<"VNTTestUnicorn", "depth", &plusThousand>();
    install(row);
    EXPECT_TRUE(row.record->installed);
    EXPECT_FALSE(row.record->classFound);
    EXPECT_EQ(row.record->saved, nullptr);
}

TEST_F(Hook, TwiceOnOneMethodRunsTheLaterFirst) {
    install(hook<"VNTTestDog", "depth", &plusThousand>());
    // The rows of one class and selector share a record, so the second hook is a class of its own
    // making: the framework's call made directly.
    static IMP first = nullptr;
    auto later = +[](id self, SEL command) -> long {
        return 2 * reinterpret_cast<long (*)(id, SEL)>(first)(self, command);
    };
    MSHookMessageEx(classOf<Dog>(), selector<"depth">(), reinterpret_cast<IMP>(later), &first);
    EXPECT_EQ(depth<Dog>(), 2 * (1 + 1000));
    EXPECT_EQ(depth<Animal>(), 1);
}

TEST_F(Hook, PassesStructuresThrough) {
    install(hook<"VNTTestAnimal", "grown:by:", &shifted>());
    EXPECT_EQ((create<Kitten>().send<"grown:by:", CGRect>(rect(1, 2, 3, 4), 10.0)),
              rect(101, 2, 13, 14));
}

TEST_F(Hook, WithoutASystemImplementationTheCallableYieldsZero) {
    System<CGRect(double)> none(nullptr, nullptr, nullptr);
    EXPECT_EQ(none(5), rect(0, 0, 0, 0));
}

TEST_F(Hook, RemembersTheEncodingExpectedAndMet) {
    HookRow row = hook<"VNTTestKitten", "depth", &timesTwo>();
    install(row);
    EXPECT_STREQ(row.encoding, "q@:");
    EXPECT_STREQ(row.record->encodingMet, "q@:");
    EXPECT_EQ(depth<Kitten>(), 222);
}

}  // namespace
}  // namespace platform::tests
