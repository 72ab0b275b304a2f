// Expressions: what they are worth, how that prints, and how it compares.
#include "simulator/scenario/objective_c.hpp"
#include "tests/scenario/fixture.hpp"

namespace simulator::scenario {
namespace {

struct Printed {
    const char* expression;
    const char* text;
};

void PrintTo(const Printed& row, std::ostream* output) { *output << row.expression; }

class ScenarioPrinting : public ScenarioTest, public ::testing::WithParamInterface<Printed> {};

TEST_P(ScenarioPrinting, GivesTheText) { EXPECT_EQ(value(GetParam().expression), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Literals, ScenarioPrinting,
    ::testing::Values(
        Printed{"5", "5"}, Printed{"-5", "-5"}, Printed{"+5", "5"}, Printed{"0.5", "0.5"},
        Printed{".5", "0.5"}, Printed{"1.0", "1"}, Printed{"0.1234567", "0.123457"},
        Printed{"-0.0000001", "0"}, Printed{"18446744073709551615", "18446744073709551615"},
        Printed{"9007199254740993", "9007199254740993"}, Printed{"YES", "YES"}, Printed{"NO", "NO"},
        Printed{"nil", "nil"}, Printed{"W", "375"}, Printed{"H", "812"},
        Printed{R"("a # b")", R"("a # b")"}, Printed{R"("q\"b\\n\n")", R"("q\"b\\n\n")"},
        Printed{R"(@"x")", R"("x")"}, Printed{R"("é")", R"("é")"}, Printed{R"("")", R"("")"},
        Printed{"NSObject", "<NSObject>"}, Printed{"@selector(a:b:)", "@selector(a:b:)"},
        Printed{"@selector( count )", "@selector(count)"}, Printed{"{1, 2.5}", "{1, 2.5}"},
        Printed{"{1,2,3,4}", "{1, 2, 3, 4}"},
        Printed{"{W / 2, -H, 1 + 1, (3)}", "{187.5, -812, 2, 3}"}));

INSTANTIATE_TEST_SUITE_P(
    Arithmetic, ScenarioPrinting,
    ::testing::Values(Printed{"1 + 2", "3"}, Printed{"H - 115", "697"}, Printed{"H -115", "697"},
                      Printed{"H-115", "697"}, Printed{"2 - -3", "5"}, Printed{"2 * 3.5", "7"},
                      Printed{"7 / 2", "3.5"}, Printed{"6 / 2", "3"}, Printed{"1 + 2 * 3", "7"},
                      Printed{"(1 + 2) * 3", "9"}, Printed{"10 - 3 - 2", "5"},
                      Printed{"12 / 3 / 2", "2"}, Printed{"-(1 + 2)", "-3"},
                      Printed{"YES + YES", "2"}, Printed{"nil + 1", "1"},
                      Printed{"[[ScenarioSpecimen shared] number] + 1", "43"}));

INSTANTIATE_TEST_SUITE_P(
    Fields, ScenarioPrinting,
    ::testing::Values(Printed{"{1, 2}.x", "1"}, Printed{"{1, 2}.y", "2"},
                      Printed{"{1, 2}.width", "1"}, Printed{"{1, 2}.height", "2"},
                      Printed{"{1, 2, 3, 4}.x", "1"}, Printed{"{1, 2, 3, 4}.y", "2"},
                      Printed{"{1, 2, 3, 4}.width", "3"}, Printed{"{1, 2, 3, 4}.height", "4"},
                      Printed{"{1, 2, 3, 4}.origin", "{1, 2}"},
                      Printed{"{1, 2, 3, 4}.size", "{3, 4}"}, Printed{"{1, 2, 3, 4}.origin.y", "2"},
                      Printed{"{1, 2, 3, 4} . size . width", "3"},
                      Printed{"{1, 2, 3, 4}.y - 1", "1"}, Printed{"nil.origin.y", "nil"},
                      Printed{"({1, 2}).y * 2", "4"}));

INSTANTIATE_TEST_SUITE_P(
    Messages, ScenarioPrinting,
    ::testing::Values(
        Printed{"[ScenarioSpecimen shared]", "<ScenarioSpecimen>"},
        Printed{"[[ScenarioSpecimen shared] isEnabled]", "YES"},
        Printed{"[[ScenarioSpecimen shared] title]", "\"A title\""},
        Printed{"[[[ScenarioSpecimen shared] title] length]", "7"},
        Printed{"[\"abc\" stringByAppendingString: \"d\"]", "\"abcd\""},
        Printed{"[\"abc\" stringByAppendingString:\"d\"]", "\"abcd\""},
        Printed{"[[ScenarioSpecimen shared] number]", "42"},
        Printed{"[[ScenarioSpecimen shared] nothing]", "nil"},
        Printed{"[[ScenarioSpecimen shared] doNothing]", "void"}, Printed{"[nil anything]", "nil"},
        Printed{"[nil frame].size.width", "nil"}, Printed{"[[nil view] x: 1 y: 2]", "nil"},
        Printed{"[5 intValue]", "5"}, Printed{"[NSObject class]", "<NSObject>"},
        Printed{"key [ScenarioSpecimen shared] \"enabled\"", "YES"},
        Printed{"key [ScenarioSpecimen shared] \"hidden\"", "7"},
        Printed{"key [ScenarioSpecimen shared] \"plain\" + 1", "3.5"},
        Printed{"key [ScenarioSpecimen shared] \"frame\".size", "{0, 0}"},
        Printed{"key nil \"frame\"", "nil"},
        Printed{"[key [ScenarioSpecimen shared] \"title\" length]", "7"},
        Printed{"key [NSDictionary dictionaryWithObject: 5 forKey: \"a\"] \"a\"", "5"},
        Printed{"key [NSDictionary dictionaryWithObject: 5 forKey: \"count\"] \"count\"", "5"}));

// Every encoding gives back what it was given, and prints as its kind.
INSTANTIATE_TEST_SUITE_P(
    Encodings, ScenarioPrinting,
    ::testing::Values(
        Printed{"[[ScenarioSpecimen shared] takeB: YES]", "YES"},
        Printed{"[[ScenarioSpecimen shared] takeB: 2]", "YES"},
        Printed{"[[ScenarioSpecimen shared] takec: NO]", "NO"},
        Printed{"[[ScenarioSpecimen shared] takeC: 1]", "YES"},
        Printed{"[[ScenarioSpecimen shared] takes: -30000]", "-30000"},
        Printed{"[[ScenarioSpecimen shared] takeS: 65535]", "65535"},
        Printed{"[[ScenarioSpecimen shared] takei: -2147483648]", "-2147483648"},
        Printed{"[[ScenarioSpecimen shared] takeI: 4294967295]", "4294967295"},
        Printed{"[[ScenarioSpecimen shared] takel: -5000000000]", "-5000000000"},
        Printed{"[[ScenarioSpecimen shared] takeL: 5000000000]", "5000000000"},
        Printed{"[[ScenarioSpecimen shared] takeq: -9223372036854775808]", "-9223372036854775808"},
        Printed{"[[ScenarioSpecimen shared] takeQ: 18446744073709551615]", "18446744073709551615"},
        Printed{"[[ScenarioSpecimen shared] takeQ: -1]", "18446744073709551615"},
        Printed{"[[ScenarioSpecimen shared] takef: 0.5]", "0.5"},
        Printed{"[[ScenarioSpecimen shared] takef: 0.1]", "0.1"},
        Printed{"[[ScenarioSpecimen shared] taked: -1.25]", "-1.25"},
        Printed{"[[ScenarioSpecimen shared] taked: 3]", "3"},
        Printed{"[[ScenarioSpecimen shared] takei: 2.9]", "2"},
        Printed{"[[ScenarioSpecimen shared] takei: nil]", "0"},
        Printed{"[[ScenarioSpecimen shared] takei: [[ScenarioSpecimen shared] number]]", "42"},
        Printed{"[[ScenarioSpecimen shared] takeObject: \"s\"]", "\"s\""},
        Printed{"[[ScenarioSpecimen shared] takeObject: 5]", "5"},
        Printed{"[[ScenarioSpecimen shared] takeObject: 2.5]", "2.5"},
        Printed{"[[ScenarioSpecimen shared] takeObject: YES]", "YES"},
        Printed{"[[ScenarioSpecimen shared] takeObject: nil]", "nil"},
        Printed{"[[ScenarioSpecimen shared] takeObject: NSString]", "<NSString>"},
        Printed{"[[ScenarioSpecimen shared] takeClass: NSString]", "<NSString>"},
        Printed{"[[ScenarioSpecimen shared] takeSelector: @selector(a:)]", "@selector(a:)"},
        Printed{"[[ScenarioSpecimen shared] takeSelector: nil]", "nil"},
        Printed{"[[ScenarioSpecimen shared] takeText: \"x\"]", "\"x\""},
        Printed{"[[ScenarioSpecimen shared] takePointer: nil]", "nil"},
        Printed{"[[ScenarioSpecimen shared] takeBlock: nil]", "nil"},
        Printed{"[[ScenarioSpecimen shared] takePoint: {1, 2}]", "{1, 2}"},
        Printed{"[[ScenarioSpecimen shared] takeRect: {1, 2, 3, 4}]", "{1, 2, 3, 4}"},
        Printed{"[[ScenarioSpecimen shared] takeRect: nil]", "{0, 0, 0, 0}"},
        Printed{"[[ScenarioSpecimen shared] takeTransform: {1, 0, 0, 1, 5, 6}]",
                "{1, 0, 0, 1, 5, 6}"},
        Printed{"[[ScenarioSpecimen shared] takeTransform: {1, 0, 0, 1, 5, 6}].ty", "6"},
        Printed{"[[ScenarioSpecimen shared] sum: 1 and: 2.5 point: {10, 20} float: 0.25 "
                "rect: {100, 0, 0, 200} flag: YES]",
                "334.75"}));

class ScenarioHolding : public ScenarioTest, public ::testing::WithParamInterface<const char*> {};
class ScenarioNotHolding : public ScenarioHolding {};

TEST_P(ScenarioHolding, Holds) { EXPECT_TRUE(holds(GetParam())); }
TEST_P(ScenarioNotHolding, DoesNotHold) { EXPECT_FALSE(holds(GetParam())); }

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioHolding,
    ::testing::Values(
        "YES", "\"\"", "5", "NSObject", "{0, 0}", "1 == 1", "1 != 2", "1 < 2", "2 <= 2", "3 > 2",
        "3 >= 3", "1.0000005 == 1", "1000000.5 == 1000000", "0.1 + 0.2 == 0.3",
        "0.00000000001 == 0", "1 ~ 1.5", "1.5 ~ 1", "{1, 2} ~ {1.4, 1.6}",
        "{1, 2, 3, 4} == {1.0000001, 2, 3, 4}", "{1, 2} != {1, 2, 3, 4}", "YES == 1", "NO == 0",
        "YES > NO", "nil == 0", "nil == NO", "nil == nil", "0 == nil", "nil == {0, 0, 0, 0}",
        "{0, 0} == nil", "nil != \"\"", "[nil frame].y == 0", "[nil count] < 1",
        "[nil frame] ~ {0.4, 0, 0, 0}", "\"a\" == \"a\"", "\"a\" != \"b\"", "\"a\" != 1",
        "\"\" != nil", "[[ScenarioSpecimen shared] title] == \"A title\"",
        "[[ScenarioSpecimen shared] list] == [NSArray arrayWithObject: \"only\"]",
        "[[ScenarioSpecimen shared] list] != [NSArray array]",
        "[ScenarioSpecimen shared] == [ScenarioSpecimen shared]",
        "[ScenarioSpecimen shared] != [ScenarioSpecimen make]",
        "[[ScenarioSpecimen shared] class] == ScenarioSpecimen",
        "[[ScenarioSpecimen shared] number] == 42", "[[ScenarioSpecimen shared] number] > 41",
        "[[ScenarioSpecimen shared] number] ~ 42.5", "[ScenarioSpecimen shared] != nil",
        "[[ScenarioSpecimen shared] takef: 0.6] == 0.6", "@selector(a) == @selector(a)",
        "@selector(a) != @selector(b)", "[NSNumber numberWithInt: 0] != nil",
        "[NSNumber numberWithBool: NO] == NO", "[NSNumber numberWithBool: NO]"));

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioNotHolding,
    ::testing::Values("NO", "nil", "0", "[nil anything]", "[[ScenarioSpecimen shared] doNothing]",
                      "1 == 1.00001", "1 != 1.0000001", "1000000 == 1000001", "1 ~ 1.6",
                      "{1, 2} ~ {1, 2.6}", "{1, 2} == {1, 3}", "{1, 2} == {1, 2, 3, 4}", "2 < 2",
                      "2 > 2", "YES == 2", "\"a\" == \"b\"", "\"1\" == 1", "nil == \"\"",
                      "NSObject == nil",
                      // An error fails the line as well.
                      "\"a\" < \"b\"", "\"a\" ~ \"a\"", "{1, 2} < {3, 4}", "1 / 0 == 0"));

struct Refused {
    const char* statement;
    const char* why;
};

void PrintTo(const Refused& row, std::ostream* output) { *output << row.statement; }

class ScenarioRefusing : public ScenarioTest, public ::testing::WithParamInterface<Refused> {};

TEST_P(ScenarioRefusing, FailsTheLineAndTheRunGoesOn) {
    const std::string statement = GetParam().statement;
    EXPECT_EQ(run(statement + "\nexpect YES"),
              "t.scenario:1: " + statement + ": " + GetParam().why + "\n");
    EXPECT_EQ(failed, 1);
    EXPECT_EQ(held, 1);
}

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioRefusing,
    ::testing::Values(
        Refused{"do [ScenarioSpecimen nope]", "+[ScenarioSpecimen nope]: unknown selector"},
        Refused{"do [[ScenarioSpecimen shared] no: 1 pe: 2]",
                "-[ScenarioSpecimen no:pe:]: unknown selector"},
        Refused{"do [NoSuchClass new]", "there is no class or value named NoSuchClass"},
        Refused{"do [[ScenarioSpecimen shared] takei: \"x\"]",
                "argument 1 of -[ScenarioSpecimen takei:]: it must be a number, got \"x\""},
        Refused{"do [[ScenarioSpecimen shared] takei: 5000000000]",
                "argument 1 of -[ScenarioSpecimen takei:]: 5000000000 is out of range"},
        Refused{"do [[ScenarioSpecimen shared] takePoint: {1, 2, 3, 4}]",
                "argument 1 of -[ScenarioSpecimen takePoint:]: it must be a structure of 2 "
                "numbers, got {1, 2, 3, 4}"},
        Refused{"do [[ScenarioSpecimen shared] takeBlock: 5]",
                "argument 1 of -[ScenarioSpecimen takeBlock:]: it must be a block, for which only "
                "nil can be given, got 5"},
        Refused{"do [[ScenarioSpecimen shared] takeObject: {1, 2}]",
                "argument 1 of -[ScenarioSpecimen takeObject:]: it must be an object, got {1, 2}"},
        Refused{"do [[ScenarioSpecimen shared] union]",
                "the type encoding '(u=id)@:' cannot be used from a scenario"},
        Refused{"do [{1, 2} x]", "a message cannot be sent to {1, 2}"},
        Refused{"do {1, 2}.origin", "{1, 2} has no field origin"},
        Refused{"do 5.5 + \"a\"", "\"a\" is no number but \"a\""},
        Refused{"do key [ScenarioSpecimen shared] \"none\"",
                "<ScenarioSpecimen> has nothing for the key \"none\""},
        Refused{"print \"\xff\"", "the string is not UTF-8"},
        Refused{"do presentation 5", "5 is no view"}));

TEST_F(ScenarioTest, AWrongNumberOfArgumentsIsRefused) {
    registerSpecimen();
    const auto cls = reinterpret_cast<Class>(classNamed("ScenarioSpecimen"));
    class_addMethod(cls, sel_registerName("lying:"),
                    class_getMethodImplementation(cls, sel_registerName("doNothing")), "v@:");
    EXPECT_EQ(run("do [[ScenarioSpecimen shared] lying: 1]"),
              "t.scenario:1: do [[ScenarioSpecimen shared] lying: 1]: "
              "-[ScenarioSpecimen lying:] takes 0 arguments, got 1\n");
}

TEST_F(ScenarioTest, StateIsKeptBetweenMessages) {
    EXPECT_EQ(run("let s = [ScenarioSpecimen make]\n"
                  "do [s setFrame: {1, 2, 3, 4}]\n"
                  "print [s frame]\nprint s.frame.size.height\n"),
              "{1, 2, 3, 4}\n4\n");
}

TEST_F(ScenarioTest, NamedObjectsLiveAsLongAsTheRunAndOthersAsLongAsTheirLine) {
    run("let a = [ScenarioSpecimen make]\ndo [ScenarioSpecimen make]\nlet a = a\nprint [a same]");
    EXPECT_EQ(livingSpecimens(), 0);
    EXPECT_EQ(run("let a = [ScenarioSpecimen make]\nprint [a frame]"), "{0, 0, 0, 0}\n");
}

TEST_F(ScenarioTest, NamesShadowClasses) {
    EXPECT_EQ(run("let NSObject = 5\nprint NSObject"), "5\n");
}

TEST_F(ScenarioTest, APresentationIsAReceiver) {
    phone.presented = send<id>(classNamed("ScenarioSpecimen"), "shared");
    EXPECT_EQ(run("let v = [ScenarioSpecimen make]\n"
                  "print [presentation v title]\n"
                  "print [presentation [v same] isEnabled]\n"
                  "print [(presentation v) frame].y\n"
                  "print [presentation nil frame].y"),
              "\"A title\"\nYES\n0\nnil\n");
}

}  // namespace
}  // namespace simulator::scenario
