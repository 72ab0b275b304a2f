// Which form of a feature is taken, what it is told by, and that it stays.
#include "platform/form.hpp"

#include <gtest/gtest.h>

#include <string>

#include "simulator/runtime/system_libraries.hpp"
#include "simulator/runtime/system_log.hpp"
#include "tests/platform/animal.hpp"

namespace platform::tests {
namespace {

using simulator::SystemLog;

constexpr FixedString library{"/System/Library/PrivateFrameworks/Barn.framework/Barn"};

struct Voice {
    int (*loudness)(Object);
};
constexpr Voice one{[](Object) { return 1; }};
constexpr Voice two{[](Object) { return 2; }};
constexpr Voice three{[](Object) { return 3; }};

using Depth = InstanceMethod<"VNTTestCat", "depth", long()>;
using Inherited = InstanceMethod<"VNTTestCat", "leap", long()>;
using Unknown = InstanceMethod<"VNTTestCat", "fly:", void(double)>;
using Late = InstanceMethod<"VNTFormTestLate", "description", NSString()>;
using Made = ClassMethod<"VNTTestCat", "new", Object()>;
using NotMade = ClassMethod<"VNTTestCat", "depth", long()>;
using Weigh = LibraryFunction<library, "BarnWeigh", int(int)>;
using Sign = LibraryString<library, "kBarnSign">;

int weigh(int animals) { return animals * 400; }

class FormTable : public testing::Test {
  protected:
    FormTable() {
        registerAnimals();
        SystemLog::shared().install();
    }
    static long logged(const std::string& text) { return SystemLog::shared().count(text); }
    AutoreleasePool pool_;
};

TEST_F(FormTable, TakesTheFirstWhoseNeedsAreAllMet) {
    using Table = Feature<"voice", Form<"flying", one, Depth, Unknown>, Form<"deep", two, Depth>,
                          Form<"leaping", three, Inherited>>;
    ASSERT_NE(Table::taken(), nullptr);
    EXPECT_EQ(Table::taken()->loudness(Object()), 2);
    EXPECT_STREQ(Table::record().form.load(), "deep");
    EXPECT_EQ(logged("voice"), 0);
}

TEST_F(FormTable, WithoutAnyIsOffInSilence) {
    using Table = Feature<"flight", Form<"flying", one, Unknown>, Form<"made", two, NotMade>>;
    EXPECT_EQ(Table::taken(), nullptr);
    EXPECT_EQ(Table::taken(), nullptr);
    EXPECT_EQ(Table::record().form.load(), nullptr);
    EXPECT_EQ(logged("flight"), 0);
}

TEST_F(FormTable, IsLookedThroughAgainUntilAClassCame) {
    using Table = Feature<"late voice", Form<"late", one, Late>>;
    EXPECT_EQ(Table::taken(), nullptr);
    Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "VNTFormTestLate", 0);
    objc_registerClassPair(cls);
    ASSERT_NE(Table::taken(), nullptr);
}

TEST_F(FormTable, KeepsTheFormThatItTook) {
    using Table = Feature<"kept voice", Form<"late", one, Late>, Form<"deep", two, Depth>>;
    ASSERT_NE(Table::taken(), nullptr);
    Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "VNTFormTestLate", 0);
    objc_registerClassPair(cls);
    EXPECT_EQ(Table::taken()->loudness(Object()), 2);
}

TEST_F(FormTable, SwitchedOffStaysOffAndSaysWhyOnce) {
    using Table = Feature<"refused voice", Form<"deep", two, Depth>>;
    ASSERT_NE(Table::taken(), nullptr);
    Table::switchOff("refused", "no such goose"_ns);
    Table::switchOff("refused");
    EXPECT_EQ(Table::taken(), nullptr);
    EXPECT_EQ(logged("refused voice"), 1);
    EXPECT_EQ(logged("[Vantori] refused voice is off: refused: no such goose"), 1);
}

TEST_F(FormTable, FeaturesThatWereUsedAreListedOnce) {
    using First = Feature<"first voice", Form<"deep", two, Depth>>;
    using Second = Feature<"second voice", Form<"flying", one, Unknown>>;
    using Unused = Feature<"unused voice", Form<"deep", two, Depth>>;
    EXPECT_EQ(usedFeatures(), nullptr);
    First::taken();
    Second::taken();
    First::taken();
    Second::taken();
    EXPECT_STREQ(Unused::record().name, "unused voice");
    ASSERT_EQ(usedFeatures(), &Second::record());
    ASSERT_EQ(usedFeatures()->next, &First::record());
    EXPECT_EQ(First::record().next, nullptr);
}

TEST_F(FormTable, NeedsSendWhatTheyName) {
    auto cat = create<Cat>();
    EXPECT_TRUE(Depth::isThere());
    EXPECT_EQ(Depth::send(cat), 11);
    EXPECT_TRUE(Made::isThere());
    EXPECT_TRUE(adopted(Made::send()).isKindOfClass(classOf<Cat>()));
    EXPECT_FALSE(NotMade::isThere());  // instances answer it, the class does not
}

TEST_F(FormTable, ClassesAndVariablesAreLookedFor) {
    using Class_ = ClassNamed<"VNTTestCat">;
    using NoClass = ClassNamed<"VNTTestUnicorn">;
    using State = InstanceVariable<"VNTTestAnimal", "_stateVNTTestAnimal">;
    using NoState = InstanceVariable<"VNTTestAnimal", "_horn">;
    EXPECT_TRUE(Class_::isThere());
    EXPECT_FALSE(NoClass::isThere());
    EXPECT_TRUE(State::isThere());
    EXPECT_FALSE(NoState::isThere());
    EXPECT_FALSE(NoState::of(create<Animal>()));  // reading it by key would raise
    EXPECT_FALSE(NoState::of(Object()));
}

TEST_F(FormTable, AVariableIsReadByKey) {
    using Held = InstanceVariable<"VNTFormTestHolder", "_held">;
    Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "VNTFormTestHolder", 0);
    class_addIvar(cls, "_held", sizeof(id), 3, "@");
    objc_registerClassPair(cls);
    auto holder = adopted(Object(classObject(cls)).send<"new", Object>());
    EXPECT_FALSE(Held::of(holder));
    holder.send<"setValue:forKey:">(Object("word"_ns.get()), "_held"_ns);
    EXPECT_EQ(Held::of(holder).get(), "word"_ns.get());
}

TEST_F(FormTable, AFunctionOfALibraryIsCalledWhereItIs) {
    simulator::exportFunction(library.view(), "BarnWeigh", &weigh);
    EXPECT_TRUE(Weigh::isThere());
    EXPECT_EQ(Weigh::call(3), 1200);
}

TEST_F(FormTable, AFunctionIsNotThereWithoutItsLibraryOrItsName) {
    EXPECT_FALSE(Weigh::isThere());  // no such library
    simulator::exportFunction(library.view(), "BarnPaint", &weigh);
    EXPECT_FALSE(Sign::isThere());
}

TEST_F(FormTable, AStringOfALibraryIsReadAtItsAddress) {
    static id sign = "Mind the goose"_ns.get();
    simulator::exportSymbol(library.view(), "kBarnSign", &sign);
    ASSERT_TRUE(Sign::isThere());
    EXPECT_EQ(Sign::value().get(), sign);
}

TEST_F(FormTable, IsOneLineOfText) {
    using Table = Feature<"all needs", Form<"first", one, Made, ClassNamed<"VNTTestDog">, Weigh>,
                          Form<"second", two, InstanceVariable<"VNTTestCat", "_tail">>>;
    EXPECT_EQ(
        Table::formTable.view(),
        "all needs: first = +[VNTTestCat new] @@: & class VNTTestDog & symbol BarnWeigh of "
        "/System/Library/PrivateFrameworks/Barn.framework/Barn; second = ivar VNTTestCat _tail");
}

}  // namespace
}  // namespace platform::tests
