// A method in whose place a function was put, as the classes below see it: also one whose table the
// runtime had to part from its superclass's.
#include "simulator/runtime/replacement.hpp"

#include <gtest/gtest.h>

#include <string>

#include "simulator/runtime/stand_in.hpp"

namespace {

using platform::create;
using platform::Object;
using platform::sendMessage;

int one(id, SEL) { return 1; }
int two(id, SEL) { return 2; }
int three(id, SEL) { return 3; }

constexpr int neighbours = 128;  // more than the runtime keeps in one part of a table

SEL neighbour(int number) {
    return sel_registerName(("replacementTest" + std::to_string(number)).c_str());
}

// A superclass with many methods that came one after the other, and a subclass with one of them.
struct Family {
    Class parent, child;

    explicit Family(const std::string& name) {
        parent = objc_allocateClassPair(objc_getClass("NSObject"), name.c_str(), 0);
        for (int i = 0; i < neighbours; ++i) {
            class_addMethod(parent, neighbour(i), reinterpret_cast<IMP>(&one), "i16@0:8");
        }
        objc_registerClassPair(parent);
        child = objc_allocateClassPair(parent, (name + "Child").c_str(), 0);
        class_addMethod(child, neighbour(neighbours / 2), reinterpret_cast<IMP>(&three), "i16@0:8");
        objc_registerClassPair(child);
    }
};

int ask(Class cls, int number) {
    auto object = platform::adopted(sendMessage<Object>(
        sendMessage<Object>(reinterpret_cast<id>(cls), sel_registerName("alloc")).get(),
        sel_registerName("init")));
    return sendMessage<int>(object.get(), neighbour(number));
}

TEST(Replacement, IsSeenBySubclassesThatWereUsedBefore) {
    const Family family("ReplacementTestUsed");
    for (int i = 0; i < neighbours; ++i) ask(family.child, i);
    for (int i = 0; i < neighbours; ++i) {
        ASSERT_TRUE(
            simulator::replaceMethod(family.parent, neighbour(i), reinterpret_cast<IMP>(&two)));
    }
    for (int i = 0; i < neighbours; ++i) {
        EXPECT_EQ(ask(family.parent, i), 2) << i;
        EXPECT_EQ(ask(family.child, i), i == neighbours / 2 ? 3 : 2) << i;
    }
}

TEST(Replacement, LeavesTheSuperclassAlone) {
    const Family family("ReplacementTestAlone");
    EXPECT_EQ(simulator::replaceMethod(family.child, neighbour(1), reinterpret_cast<IMP>(&two)),
              reinterpret_cast<IMP>(&one));
    EXPECT_EQ(ask(family.child, 1), 2);
    EXPECT_EQ(ask(family.parent, 1), 1);
}

TEST(Replacement, IsOfNothingWithoutTheClassOrTheMethod) {
    const auto replacement = reinterpret_cast<IMP>(&two);
    EXPECT_EQ(simulator::replaceMethod(nullptr, neighbour(0), replacement), nullptr);
    EXPECT_EQ(simulator::replaceMethod("ReplacementTestMissing", simulator::MethodKind::instance,
                                       "description", replacement),
              nullptr);
    EXPECT_EQ(simulator::replaceMethod("NSObject", simulator::MethodKind::onClass,
                                       "replacementTestMissing", replacement),
              nullptr);
}

}  // namespace
