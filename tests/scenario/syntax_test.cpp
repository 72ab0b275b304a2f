// Malformed lines: where they are said to be wrong, and why.
#include <gtest/gtest.h>

#include "simulator/scenario/parser.hpp"

namespace simulator::scenario {
namespace {

struct Malformed {
    const char* text;
    const char* report;
};

void PrintTo(const Malformed& row, std::ostream* output) { *output << row.text; }

class ScenarioSyntax : public ::testing::TestWithParam<Malformed> {};

TEST_P(ScenarioSyntax, IsReportedWhereItIsWrong) {
    try {
        parse(GetParam().text);
        FAIL() << "it was parsed";
    } catch (const SyntaxError& error) {
        EXPECT_EQ(error.report("f"), GetParam().report);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Statements, ScenarioSyntax,
    ::testing::Values(
        Malformed{"jump", "f:1:1: there is no statement 'jump'"},
        Malformed{"\n\n  jump 5", "f:3:3: there is no statement 'jump'"},
        Malformed{"Boot", "f:1:1: there is no statement 'Boot' (is boot meant?)"},
        Malformed{"bootx", "f:1:1: there is no statement 'bootx' (is boot meant?)"},
        Malformed{"5", "f:1:1: expected a statement, got '5'"},
        Malformed{"[a b]", "f:1:1: expected a statement, got '[a'"},
        Malformed{"device", "f:1:7: expected a machine identifier, but the line ends"},
        Malformed{"device iPhone8,1 b", "f:1:18: expected the end of the line, got 'b'"},
        Malformed{
            "device iPhone99,9",
            "f:1:8: there is no device 'iPhone99,9' (`vantori-simulator devices` lists them)"},
        Malformed{"boot # on\ndevice iPhone1,03",
                  "f:2:8: there is no device 'iPhone1,03' (is iPhone10,3 meant?)"},
        Malformed{"system 99.0", "f:1:8: there is no system 99.0: they are 11.0 to 14.8"},
        Malformed{"system 10.3", "f:1:8: there is no system 10.3: they are 11.0 to 14.8"},
        Malformed{"system 14.9", "f:1:8: there is no system 14.9: they are 11.0 to 14.8"},
        Malformed{"boot\ntap 5", "f:2:6: expected a number for y, but the line ends"},
        Malformed{"boot\ntap \"Done\"", "f:2:5: expected a view, got '\"Done\"'"},
        Malformed{"boot\ntap label Done", "f:2:11: expected a text in double quotes, got 'Done'"},
        Malformed{"boot\nwait until", "f:2:11: expected an expression, but the line ends"},
        Malformed{"boot\nwait until 1 == 2", "f:2:18: expected 'for', but the line ends"},
        Malformed{"boot\nwait until 1 == 2 for ever",
                  "f:2:23: expected a number of seconds, got 'ever'"},
        Malformed{"boot\nwait 1 times", "f:2:13: expected a whole number, but the line ends"},
        Malformed{"boot\ndrag [a b] 1 over 2", "f:2:14: expected a distance down, got 'over'"},
        Malformed{"expect order", "f:1:13: expected an event, but the line ends"},
        Malformed{"expect order posted \"A\" posted \"B\"", "f:1:25: expected ',', got 'posted'"},
        Malformed{"expect order posted \"A\",", "f:1:25: expected an event, but the line ends"},
        Malformed{"expect order shown \"A\"",
                  "f:1:14: expected called, posted, darwin-posted, haptic, launched or logged, got "
                  "'shown'"},
        Malformed{"expect order haptic 3", "f:1:21: expected a style: 0, 1 or 2, got '3'"},
        Malformed{"boot\nexpect shown Done",
                  "f:2:14: expected a text in double quotes, got 'Done'"},
        Malformed{"record", "f:1:7: expected the name of a scenario, but the line ends"},
        Malformed{"boot now", "f:1:6: expected the end of the line, got 'now'"},
        Malformed{"screen 1 2", "f:1:11: expected a scale, but the line ends"},
        Malformed{"screen a 2 3", "f:1:8: expected a width, got 'a'"},
        Malformed{"system x", "f:1:8: expected a version such as 13.3, got 'x'"},
        Malformed{"date 2021-02-29 09:41",
                  "f:1:6: expected a day such as 2018-01-09, got '2021-02-29'"},
        Malformed{"date 2021-02-28 24:00", "f:1:17: expected a time such as 09:41, got '24:00'"},
        Malformed{"date 2021-02-28", "f:1:16: expected a time such as 09:41, but the line ends"},
        Malformed{"system 13.", "f:1:8: expected a version such as 13.3, got '13.'"},
        Malformed{"homebutton maybe", "f:1:12: expected yes or no, got 'maybe'"},
        Malformed{"missing link x",
                  "f:1:9: expected 'class', 'bundle', 'method' or 'file', got 'link'"},
        Malformed{"dock 2.5", "f:1:6: 2.5 is no whole number"},
        Malformed{"dock -1", "f:1:6: -1 is less than 0"},
        Malformed{"without", "f:1:8: expected 'extension', but the line ends"},
        Malformed{"file /a text", "f:1:9: expected a text in double quotes, got 'text'"},
        Malformed{"file /a \"text", "f:1:9: the string has no closing quote"},
        Malformed{"file /a \"a\\tb\"",
                  "f:1:11: a backslash in a string stands before \", \\ or n only"},
        Malformed{"delete a\"b\"", "f:1:9: a quote in the middle of a word"},
        Malformed{"delete \"é\" x", "f:1:12: expected the end of the line, got 'x'"},
        Malformed{"boot\nwait", "f:2:5: expected a number of seconds, but the line ends"},
        Malformed{"boot\nwait soon", "f:2:6: expected a number of seconds, got 'soon'"},
        Malformed{"boot\nwait -1", "f:2:6: -1 is less than 0"},
        Malformed{"boot\nwait 1e3", "f:2:6: a number is decimal, with an optional fraction"},
        Malformed{"boot\nwait 1.2.3", "f:2:6: a number is decimal, with an optional fraction"},
        Malformed{"boot\ntouch",
                  "f:2:6: expected 'down', 'move', 'up' or 'cancel', but the line ends"},
        Malformed{"boot\ntouch move 1 2", "f:2:15: expected 'over', but the line ends"},
        Malformed{"boot\npull 1 2 over 3 flick", "f:2:22: expected a number, but the line ends"},
        Malformed{"boot\npull 1 2 over 3 fling 4", "f:2:17: expected 'flick', got 'fling'"},
        Malformed{"boot\ngrabber started 1 2 3",
                  "f:2:9: expected began, updated, ended or cancelled, got 'started'"},
        Malformed{"boot\ngrabber updated 1 2", "f:2:20: expected a number, but the line ends"},
        Malformed{"boot\nrotate left",
                  "f:2:8: expected portrait, upside-down, landscape-right or landscape-left, "
                  "got 'left'"},
        Malformed{"boot\ntoggle wifi on",
                  "f:2:8: expected orientationlock, ringermute, lowpower, donotdisturb, "
                  "flashlight, nightshift or truetone, got 'wifi'"},
        Malformed{"boot\nplay \"a\" \"b\" \"c\" d e",
                  "f:2:18: expected an artwork's identifier in double quotes, got 'd'"}));

INSTANTIATE_TEST_SUITE_P(
    Order, ScenarioSyntax,
    ::testing::Values(Malformed{"boot\ndevice iPhone8,1",
                                "f:2:1: 'device' must stand before 'boot'"},
                      Malformed{"boot\n boot", "f:2:2: the phone has booted already"},
                      Malformed{"wait 1\nboot", "f:1:1: 'wait' must stand after 'boot'"},
                      Malformed{"shot \"a.png\"", "f:1:1: 'shot' must stand after 'boot'"}));

INSTANTIATE_TEST_SUITE_P(
    Json, ScenarioSyntax,
    ::testing::Values(
        Malformed{"setting key", "f:1:12: expected a JSON value, but the line ends"},
        Malformed{"setting key {\"a\": }",
                  "f:1:19: this is no JSON, as true, 3 and \"a text\" are"},
        Malformed{"setting key yes", "f:1:13: this is no JSON, as true, 3 and \"a text\" are"},
        Malformed{"setting key 1 2", "f:1:15: this is no JSON, as true, 3 and \"a text\" are"},
        Malformed{"setting key null", "f:1:13: a property list cannot hold null"},
        Malformed{"plist /a [1, null]", "f:1:10: a property list cannot hold null"},
        Malformed{"setting key 1e999", "f:1:13: the JSON holds a number out of range"}));

INSTANTIATE_TEST_SUITE_P(
    Expressions, ScenarioSyntax,
    ::testing::Values(
        Malformed{"print", "f:1:6: expected an expression, but the line ends"},
        Malformed{"print [a", "f:1:9: expected a selector, but the line ends"},
        Malformed{"print [a b", "f:1:11: expected ']', but the line ends"},
        Malformed{"print [a b: 1 c]", "f:1:15: expected ']', got 'c]'"},
        Malformed{"print [a b: ]", "f:1:13: expected an expression, got ']'"},
        Malformed{"print [a b] ]", "f:1:13: expected the end of the line, got ']'"},
        Malformed{"print (1 + 2", "f:1:13: expected ')', but the line ends"},
        Malformed{"print 1 +", "f:1:10: expected an expression, but the line ends"},
        Malformed{"print {1, 2, 3}",
                  "f:1:7: a point or size has 2 numbers, a rectangle 4, an affine transform 6"},
        Malformed{"print {1 2}", "f:1:10: expected ',' or '}', got '2}'"},
        Malformed{"print a.5", "f:1:9: expected a field after the point, got '5'"},
        Malformed{"print @sel(a)", "f:1:7: expected @selector(NAME)"},
        Malformed{"print @selector()", "f:1:17: expected a selector, got ')'"},
        Malformed{"print key a", "f:1:12: expected a key in double quotes, but the line ends"},
        Malformed{"print \"open # text", "f:1:7: the string has no closing quote"},
        Malformed{"let = 5",
                  "f:1:5: expected a name made of letters, digits and underscores, got '='"},
        Malformed{"let x 5", "f:1:7: expected '=', got '5'"},
        Malformed{"let YES = 5", "f:1:5: YES already means something else"},
        Malformed{"expect", "f:1:7: expected an expression, but the line ends"},
        Malformed{"expect 1 = 2", "f:1:10: expected a comparison: == != < <= > >= or ~, got '='"},
        Malformed{"expect 1 ==", "f:1:12: expected an expression, but the line ends"},
        Malformed{"expect 1 == 2 == 3", "f:1:15: expected the end of the line, got '=='"},
        Malformed{"expect posted", "f:1:14: expected a name, but the line ends"},
        Malformed{"expect posted \"A\"", "f:1:18: expected a whole number, but the line ends"},
        Malformed{"expect posted \"A\" 1.5", "f:1:19: 1.5 is no whole number"},
        Malformed{"expect called C s:", "f:1:19: expected a whole number, but the line ends"},
        Malformed{"expect last C s: 5", "f:1:18: expected 'with', got '5'"},
        Malformed{"expect crashed maybe", "f:1:16: expected no or yes, got 'maybe'"}));

TEST(ScenarioParsing, AnExpressionNestedTooDeeplyIsAnErrorAndNoCrash) {
    for (const char* open : {"(", "[", "{", "-", "presentation ", "key "}) {
        std::string text = "print ";
        for (int depth = 0; depth < 100000; ++depth) text += open;
        EXPECT_THROW(parse(text), SyntaxError) << open;
    }
    EXPECT_THROW(parse("setting key " + std::string(100000, '[')), SyntaxError);
    std::string chain = "print 1";
    std::string fields = "print a";
    for (int length = 0; length < 100000; ++length) {
        chain += "+1";
        fields += ".x";
    }
    EXPECT_THROW(parse(chain), SyntaxError);
    EXPECT_THROW(parse(fields), SyntaxError);
}

TEST(ScenarioParsing, KeepsLineNumbersAndText) {
    const auto statements = parse("boot\r\n\n wait   1  # c\n");
    ASSERT_EQ(statements.size(), 2U);
    EXPECT_EQ(statements[1].line, 3);
    EXPECT_EQ(statements[1].text, "wait 1");
}

TEST(ScenarioParsing, ReadsAWholeScenario) {
    const auto statements = parse(R"(device iPhone10,3
system 13.3
setting layoutDirection 1
boot
open com.example.notes
let toolbar = [VNTSBToolBarController sharedInstance]
grabber began 60 10 0
grabber updated 60 100 0
grabber ended 60 100 0
wait 1
expect [toolbar isEnabled] == YES
expect [[toolbar view] frame].y == H - 115
expect [presentation [toolbar view] frame].y ~ H - 60
expect last SBUIController handleHomeButtonSinglePressUp with
shot "open.png"
)");
    EXPECT_EQ(statements.size(), 15U);
}

TEST(ScenarioParsing, AnEmptyFileHasNoStatements) {
    EXPECT_TRUE(parse("").empty());
    EXPECT_TRUE(parse("\n\n# nothing\n").empty());
}

}  // namespace
}  // namespace simulator::scenario
