// Statements: each reaches the phone as it should, expectations are judged and counted, and what
// fails is told.
#include "simulator/scenario/statements.hpp"
#include "simulator/scenario/objective_c.hpp"
#include "tests/scenario/fixture.hpp"

namespace simulator::scenario {
namespace {

struct Carried {
    const char* statement;
    std::vector<std::string> operations;
};

void PrintTo(const Carried& row, std::ostream* output) { *output << row.statement; }

class ScenarioSettingUp : public ScenarioTest, public ::testing::WithParamInterface<Carried> {};
class ScenarioDriving : public ScenarioTest, public ::testing::WithParamInterface<Carried> {};
class ScenarioAnytime : public ScenarioTest, public ::testing::WithParamInterface<Carried> {};

TEST_P(ScenarioSettingUp, ReachesThePhone) {
    EXPECT_EQ(run(GetParam().statement), "");
    EXPECT_EQ(phone.operations, GetParam().operations);
}

TEST_P(ScenarioSettingUp, IsMalformedAfterBoot) {
    EXPECT_THROW(run(std::string("boot\n") + GetParam().statement), SyntaxError);
    EXPECT_TRUE(phone.operations.empty());
}

TEST_P(ScenarioDriving, ReachesThePhone) {
    EXPECT_EQ(run(std::string("boot\n") + GetParam().statement), "");
    phone.operations.erase(phone.operations.begin());
    EXPECT_EQ(phone.operations, GetParam().operations);
}

TEST_P(ScenarioDriving, IsMalformedBeforeBoot) {
    EXPECT_THROW(run(GetParam().statement), SyntaxError);
}

// What is said without the remarks on settings that nothing reads.
std::string complaints(const std::string& said) {
    std::istringstream lines(said);
    std::string line, rest;
    while (std::getline(lines, line))
        if (!line.starts_with("note: ")) rest += line + "\n";
    return rest;
}

TEST_P(ScenarioAnytime, ReachesThePhoneBeforeAndAfterBoot) {
    EXPECT_EQ(complaints(run(GetParam().statement)), "");
    EXPECT_EQ(phone.operations, GetParam().operations);
    phone.operations.clear();
    EXPECT_EQ(complaints(run(std::string("boot\n") + GetParam().statement)), "");
    phone.operations.erase(phone.operations.begin());
    EXPECT_EQ(phone.operations, GetParam().operations);
}

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioSettingUp,
    ::testing::Values(
        Carried{"device iPhone8,1", {"device iPhone8,1"}},
        Carried{"device \"iPhone8,1\" # comment", {"device iPhone8,1"}},
        Carried{"screen 320 568.5 2", {"screen 320 568.5 2"}},
        Carried{"system 13.3", {"system 13.3"}}, Carried{"system 13.2.2", {"system 13.2.2"}},
        Carried{"homebutton yes", {"homeButton yes"}},
        Carried{"  homebutton\tno  ", {"homeButton no"}},
        Carried{"missing class SBDockView", {"missingClass SBDockView"}},
        Carried{"missing bundle /a/b.bundle", {"missingBundle /a/b.bundle"}},
        Carried{"missing bundle \"/a b.bundle\"", {"missingBundle /a b.bundle"}},
        Carried{"missing method SBDockView initWithFrame:",
                {"missingMethod SBDockView initWithFrame:"}},
        Carried{"missing file \"/a b.png\"", {"missingFile /a b.png"}},
        Carried{"dock 6", {"dock 6"}}, Carried{"connectivity-fails 2", {"connectivityFails 2"}},
        Carried{"real", {"real"}},
        Carried{"scene-after com.example.notes 3", {"sceneAfter com.example.notes 3"}},
        Carried{"language pt-BR", {"language pt-BR"}},
        Carried{"without extension", {"withoutExtension"}}, Carried{"boot", {"boot"}}));

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioAnytime,
    ::testing::Values(
        Carried{"setting enabled true", {"setting enabled true"}},
        Carried{"setting layoutDirection 1 # left", {"setting layoutDirection 1"}},
        Carried{"setting \"a key\" \"a # text\" # comment", {"setting a key \"a # text\""}},
        Carried{"setting list [1, {\"a\": 2.5}]", {"setting list [1,{\"a\":2.5}]"}},
        Carried{"setting none \"none\"", {"setting none \"none\""}},
        Carried{"setting enabled none", {"setting enabled none"}},
        Carried{"setting enabled none # gone", {"setting enabled none"}},
        Carried{"plist /var/a.plist {\"k\": [true, 1, 1.0]}",
                {"plist /var/a.plist {\"k\":[true,1,1.0]}"}},
        Carried{"plist \"/var/a b.plist\" {}", {"plist /var/a b.plist {}"}},
        Carried{R"(file /a "one\ntwo \"q\" \\ # no comment")",
                {"file /a one\ntwo \"q\" \\ # no comment"}},
        Carried{"delete /a", {"remove /a"}}, Carried{"delete \"/a b\"", {"remove /a b"}},
        Carried{"connectivity-button 40 50.5", {"connectivityButton 40 50.5"}},
        Carried{"recents com.a com.b \"com.c\"", {"recents ,com.a,com.b,com.c"}},
        Carried{"recents", {"recents "}},
        Carried{"flashlight-available no", {"flashlightAvailable no"}}, Carried{"clear", {"clear"}},
        Carried{"date 1970-01-02 09:41", {"date 121260"}},
        Carried{"date \"1970-01-01\" 0:00:07", {"date 7"}}, Carried{"", {}},
        Carried{"   # only a comment", {}}, Carried{"\t\r", {}}));

INSTANTIATE_TEST_SUITE_P(
    All, ScenarioDriving,
    ::testing::Values(
        Carried{"wait 0.5", {"wait 0.5"}}, Carried{"wait (1 / 4)", {"wait 0.25"}},
        Carried{"wait 0.5 times 3", {"wait 0.5", "wait 0.5", "wait 0.5"}},
        Carried{"wait 0.5 times 0", {}},
        Carried{"tap [ScenarioSpecimen shared]",
                {"reach <ScenarioSpecimen>", "touchDown 10 20", "wait 0.05", "touchUp"}},
        Carried{"tap label \"Done\"", {"activate Done"}},
        Carried{"touch down [ScenarioSpecimen shared]",
                {"reach <ScenarioSpecimen>", "touchDown 10 20"}},
        Carried{"touch move [ScenarioSpecimen shared] over 0.5",
                {"reach <ScenarioSpecimen>", "touchMove 10 20 0.5"}},
        Carried{"drag [ScenarioSpecimen shared] -5 7.5 over 1",
                {"reach <ScenarioSpecimen>", "touchDown 10 20", "touchMove 5 27.5 1", "touchUp"}},
        Carried{"wait until YES for 1", {}}, Carried{"wait until W == 375 for 1", {}},
        Carried{"open com.example.notes", {"open com.example.notes"}}, Carried{"home", {"home"}},
        Carried{"lock", {"lock"}}, Carried{"unlock", {"unlock"}},
        Carried{"rotate portrait", {"rotate 1"}}, Carried{"rotate upside-down", {"rotate 2"}},
        Carried{"rotate landscape-right", {"rotate 3"}},
        Carried{"rotate landscape-left", {"rotate 4"}},
        Carried{"appearance light", {"appearance light"}},
        Carried{"appearance dark", {"appearance dark"}},
        Carried{"touch down 10 20.5", {"touchDown 10 20.5"}},
        Carried{"touch move -1 2 over 0.25", {"touchMove -1 2 0.25"}},
        Carried{"touch up", {"touchUp"}}, Carried{"touch cancel", {"touchCancel"}},
        Carried{"tap 5 6", {"touchDown 5 6", "wait 0.05", "touchUp"}},
        Carried{"tap W (H - 10)", {"touchDown 375 802", "wait 0.05", "touchUp"}},
        Carried{"drag 1 2 3 4 over 0.5", {"touchDown 1 2", "touchMove 3 4 0.5", "touchUp"}},
        Carried{"grabber began 60 10 0", {"grabber 0 60 10 0"}},
        Carried{"grabber updated 60 10 -100", {"grabber 1 60 10 -100"}},
        Carried{"grabber ended 60 10 +5", {"grabber 2 60 10 5"}},
        Carried{"grabber cancelled 60 -10 -5", {"grabber 3 60 -10 -5"}},
        Carried{"ccgrabber began 1 2 3", {"controlCenterGrabber 0 1 2 3"}},
        Carried{"ccgrabber updated 1 2 3", {"controlCenterGrabber 1 1 2 3"}},
        Carried{"ccgrabber ended 1 2 3", {"controlCenterGrabber 2 1 2 3"}},
        Carried{"ccgrabber cancelled 1 2 3", {"controlCenterGrabber 3 1 2 3"}},
        Carried{"statusbar began 1 2 3", {"statusBar 0 1 2 3"}},
        Carried{"statusbar changed 1 2 3", {"statusBar 1 1 2 3"}},
        Carried{"statusbar ended 1 2 3", {"statusBar 2 1 2 3"}},
        Carried{"statusbar cancelled 1 2 3", {"statusBar 3 1 2 3"}},
        Carried{"pull 60 120 over 0.3", {"pull 60 120 0.3"}},
        Carried{"pull 60 120 over 0.3 flick 900", {"pull 60 120 0.3 900"}},
        Carried{"pull 60 120 over 0.3 flick -900", {"pull 60 120 0.3 -900"}},
        Carried{"ringer 1", {"ringer 1"}}, Carried{"brightness 0.25", {"brightness 0.25"}},
        Carried{"volume-key up", {"volumeKey yes"}}, Carried{"volume-key down", {"volumeKey no"}},
        Carried{"route HeadphonesBT", {"route HeadphonesBT"}},
        Carried{"route \"Speaker\"", {"route Speaker"}},
        Carried{R"(play "T" "A" "" "id 1" com.apple.Music)",
                {"play T | A |  | id 1 | com.apple.Music"}},
        Carried{"playing yes", {"playing yes"}}, Carried{"playing no", {"playing no"}},
        Carried{"nothing-playing", {"nothingPlaying"}},
        Carried{"player-callbacks other", {"playerCallbacks yes"}},
        Carried{"player-callbacks main", {"playerCallbacks no"}},
        Carried{"toggle orientationlock on", {"toggle orientationlock yes"}},
        Carried{"toggle ringermute off", {"toggle ringermute no"}},
        Carried{"toggle lowpower on", {"toggle lowpower yes"}},
        Carried{"toggle donotdisturb on", {"toggle donotdisturb yes"}},
        Carried{"toggle flashlight on", {"toggle flashlight yes"}},
        Carried{"toggle \"nightshift\" on", {"toggle nightshift yes"}},
        Carried{"toggle truetone off", {"toggle truetone no"}},
        Carried{"interrupt [ScenarioSpecimen shared]", {"interrupt <ScenarioSpecimen>"}},
        Carried{"post \"A note\"", {"post A note"}}, Carried{"post Note", {"post Note"}},
        Carried{"darwin \"com.a/b\"", {"postDarwin com.a/b"}},
        Carried{"shot \"a.png\"", {"shot pictures-of-this-test/a.png"}},
        Carried{"shot \"/b.png\"", {"shot /b.png"}},
        Carried{"film \"f.png\" 5 over 1.5", {"film pictures-of-this-test/f.png 5 1.5"}}));

class ScenarioExpecting : public ScenarioTest {
  protected:
    void SetUp() override {
        ScenarioTest::SetUp();
        const AutoreleasePool pool;
        phone.counts = {{"posted A", 2},         {"darwin com.a", 1},   {"called C s:", 3},
                        {"hooked C s:", 1},      {"hooks", 12},         {"haptics 1", 4},
                        {"logged some text", 5}, {"launched com.a", 6}, {"suspended com.a", 7}};
        phone.calls["C s:"] = {integerValue(5), Structure{{1, 2}}};
        phone.calls["C none"] = {};
    }

    // Nothing when the expectation held, else what it said.
    std::string outcome(const std::string& expectation) {
        std::string text = run("expect " + expectation);
        EXPECT_EQ(held, text.empty() ? 1 : 0);
        EXPECT_EQ(failed, text.empty() ? 0 : 1);
        return text;
    }
};

TEST_F(ScenarioExpecting, CountsThatAreRightHold) {
    for (const char* expectation :
         {"posted \"A\" 2", "posted A 2", "posted \"B\" 0", "darwin-posted \"com.a\" 1",
          "called C s: 3", "called \"C\" \"s:\" 3", "called D s: 0",
          "hooked C s:", "unhooked D s:", "hooks 12", "hooks (6 + 6)", "haptics 1 4", "haptics 0 0",
          "logged \"some text\" 5", "launched com.a 6", "launched-suspended com.a 7", "crashed no"})
        EXPECT_EQ(outcome(expectation), "") << expectation;
}

TEST_F(ScenarioExpecting, CountsThatAreWrongSayWhatIsRight) {
    EXPECT_EQ(outcome("posted \"A\" 1"), "t.scenario:1: expected posted \"A\" 1, got 2\n");
    EXPECT_EQ(outcome("darwin-posted  \"com.a\"   2 # c"),
              "t.scenario:1: expected darwin-posted \"com.a\" 2, got 1\n");
    EXPECT_EQ(outcome("called C s: 0"), "t.scenario:1: expected called C s: 0, got 3\n");
    EXPECT_EQ(outcome("hooks 13"), "t.scenario:1: expected hooks 13, got 12\n");
    EXPECT_EQ(outcome("hooked D s:"), "t.scenario:1: expected hooked D s:, got unhooked\n");
    EXPECT_EQ(outcome("unhooked C s:"), "t.scenario:1: expected unhooked C s:, got hooked\n");
    EXPECT_EQ(outcome("haptics 1 3"), "t.scenario:1: expected haptics 1 3, got 4\n");
    EXPECT_EQ(outcome("logged \"x\" 1"), "t.scenario:1: expected logged \"x\" 1, got 0\n");
    EXPECT_EQ(outcome("launched com.a 0"), "t.scenario:1: expected launched com.a 0, got 6\n");
    EXPECT_EQ(outcome("launched-suspended com.a 0"),
              "t.scenario:1: expected launched-suspended com.a 0, got 7\n");
    EXPECT_EQ(outcome("crashed yes"), "t.scenario:1: expected crashed yes, got no\n");
}

TEST_F(ScenarioExpecting, TheLastCallIsComparedArgumentByArgument) {
    EXPECT_EQ(outcome("last C s: with 5 {1, 2}"), "");
    EXPECT_EQ(outcome("last C s: with 5.000000001 {1, 2.000000001}"), "");
    EXPECT_EQ(outcome("last C none with"), "");
    EXPECT_EQ(outcome("last C s: with 5 -2"),
              "t.scenario:1: expected last C s: with 5 -2, got 5 {1, 2}\n");
    EXPECT_EQ(outcome("last C s: with 5"),
              "t.scenario:1: expected last C s: with 5, got 5 {1, 2}\n");
    EXPECT_EQ(outcome("last C t with 5"),
              "t.scenario:1: expected last C t with 5, got no such call\n");
}

TEST_F(ScenarioExpecting, ComparisonsSayWhatTheyGot) {
    EXPECT_EQ(outcome("[nil frame].y  ==   515"),
              "t.scenario:1: expected [nil frame].y == 515, got nil\n");
    EXPECT_EQ(outcome("{1, 2}.y == H - 115"),
              "t.scenario:1: expected {1, 2}.y == H - 115, got 2 where H - 115 is 697\n");
    EXPECT_EQ(outcome("NO"), "t.scenario:1: expected NO to be YES or not nil, got NO\n");
    EXPECT_EQ(outcome("0"), "t.scenario:1: expected 0 to be YES or not nil, got 0\n");
    EXPECT_EQ(outcome("NO == YES"), "t.scenario:1: expected NO == YES, got NO\n");
    EXPECT_EQ(
        outcome("[NSObject nope] == 5"),
        "t.scenario:1: expected [NSObject nope] == 5, but +[NSObject nope]: unknown selector\n");
}

TEST_F(ScenarioExpecting, ANameMayBeSpelledLikeAKindOfExpectation) {
    EXPECT_EQ(run("let posted = 3\nexpect posted == 3\nexpect posted \"A\" 2\nexpect posted"), "");
    EXPECT_EQ(held, 3);
}

TEST_F(ScenarioExpecting, ACrashOfThePhoneIsTold) {
    phone.crash = "an unknown message";
    EXPECT_EQ(outcome("crashed no"), "t.scenario:1: expected crashed no, got an unknown message\n");
    EXPECT_EQ(outcome("crashed yes"), "");
}

TEST_F(ScenarioTest, WhatIsRaisedFailsTheLineAndCountsAsACrash) {
    EXPECT_EQ(run("expect crashed no\n"
                  "do [[ScenarioSpecimen shared] raise]\n"
                  "print 5\n"
                  "expect crashed no"),
              "t.scenario:2: do [[ScenarioSpecimen shared] raise]: "
              "raised SpecimenException: it was asked to\n"
              "5\n"
              "t.scenario:4: expected crashed no, got SpecimenException: it was asked to\n");
    EXPECT_EQ(held, 1);
    EXPECT_EQ(failed, 2);
}

TEST_F(ScenarioTest, AnUnknownSelectorIsNotSentAndIsNoCrash) {
    run("do [ScenarioSpecimen nope]\nexpect crashed no");
    EXPECT_EQ(held, 1);
    EXPECT_EQ(failed, 1);
}

TEST_F(ScenarioTest, WhatThePhoneHasNotFailsItsLineOnly) {
    EXPECT_EQ(run("boot\nvolume 0.5\nwait 1"),
              "t.scenario:2: volume 0.5: not on this phone yet: the media volume\n");
    EXPECT_EQ(failed, 1);
    EXPECT_EQ(phone.operations.back(), "wait 1");
}

TEST_F(ScenarioTest, APhoneThatDidNotBootIsNotDriven) {
    phone.refusal = "no such device";
    EXPECT_EQ(run("boot\nwait 1\nexpect NO"), "t.scenario:1: boot: no such device\n");
    EXPECT_EQ(failed, 1);
}

TEST_F(ScenarioExpecting, ObjectsThatLookAlikeAreToldApart) {
    EXPECT_EQ(outcome("[ScenarioSpecimen shared] == [ScenarioSpecimen make]"),
              "t.scenario:1: expected [ScenarioSpecimen shared] == [ScenarioSpecimen make], got "
              "another <ScenarioSpecimen>\n");
    EXPECT_EQ(outcome("[ScenarioSpecimen shared] != [ScenarioSpecimen shared]"),
              "t.scenario:1: expected [ScenarioSpecimen shared] != [ScenarioSpecimen shared], got "
              "the same <ScenarioSpecimen>\n");
    EXPECT_EQ(outcome("0.0000001 == 0.0000002"),
              "t.scenario:1: expected 0.0000001 == 0.0000002, got 9.9999999999999995e-08 where "
              "0.0000002 is 1.9999999999999999e-07\n");
}

TEST_F(ScenarioExpecting, AMethodThatThereIsNotIsAMistakeWhateverIsExpectedOfIt) {
    phone.knownMethods = {"C s:"};
    EXPECT_EQ(outcome("called C s: 3"), "");
    EXPECT_EQ(outcome("unhooked D s:"),
              "t.scenario:1: expected unhooked D s:, but there is no method D s:\n");
    for (const char* expectation :
         {"called D s: 0", "hooked D s:", "last D s: with", "order posted \"A\", called D s:"})
        EXPECT_EQ(outcome(expectation), std::string("t.scenario:1: expected ") + expectation +
                                            ", but there is no method D s:\n");
}

TEST_F(ScenarioExpecting, EventsAreAskedForInTheirOrder) {
    phone.eventsMet = 6;
    EXPECT_EQ(outcome("order called C s:, posted \"A, B\",darwin-posted com.a , haptic 1, "
                      "launched com.b, logged \"some text\""),
              "");
    EXPECT_EQ(phone.operations,
              (std::vector<std::string>{"event 0 C s:", "event 1 A, B ", "event 2 com.a ",
                                        "event 3 1 ", "event 4 com.b ", "event 5 some text "}));
}

TEST_F(ScenarioExpecting, AnOrderThatWasNotMetSaysWhatIsMissing) {
    const std::string order = "order called C s:, haptic 1";
    EXPECT_EQ(outcome(order), "t.scenario:1: expected " + order + ", got no called C s: at all\n");
    phone.eventsMet = 1;
    phone.counts["elsewhere"] = 2;
    EXPECT_EQ(outcome(order), "t.scenario:1: expected " + order +
                                  ", got no haptic 1 after called C s: (2 in all)\n");
}

TEST_F(ScenarioExpecting, TextsAreShownOrNot) {
    phone.counts["shown Done"] = 1;
    EXPECT_EQ(run("boot\nexpect shown \"Done\"\nexpect not-shown \"Gone\""), "");
    EXPECT_EQ(run("boot\nexpect shown \"Gone\"\nexpect not-shown \"Done\""),
              "t.scenario:2: expected shown \"Gone\", got it is hidden\n"
              "t.scenario:3: expected not-shown \"Done\", got it is shown\n");
}

TEST_F(ScenarioTest, ATapOffTheScreenIsAMistake) {
    EXPECT_EQ(run("boot\ntap 376 10\ntap 10 -1\ntap 375 812"),
              "t.scenario:2: tap 376 10: that is off the screen, which is {375, 812}\n"
              "t.scenario:3: tap 10 -1: that is off the screen, which is {375, 812}\n");
    EXPECT_EQ(failed, 2);
}

TEST_F(ScenarioTest, WhatIsWaitedForIsLookedAtAfterEveryFrame) {
    phone.widerByWait = 1;
    EXPECT_EQ(run("boot\nwait until W == 378 for 1\nprint W"), "378\n");
    EXPECT_EQ(phone.operations.size(), 4U);
}

TEST_F(ScenarioTest, WaitingInVainFailsWhenTheTimeIsOver) {
    phone.widerByWait = 1;
    EXPECT_EQ(
        run("boot\nwait until W < 0 for 0.05\nprint W"),
        "t.scenario:2: wait until W < 0 for 0.05: still not after 0.05 s: W is 378 where 0 is "
        "0\n378\n");
    EXPECT_EQ(failed, 1);
}

TEST_F(ScenarioTest, ANameWithAFieldMayStandForANumber) {
    EXPECT_EQ(run("boot\nlet p = {5, 6}\ntap p.x p.y\nlet r = {1, 2, 3, 4}\n"
                  "drag p.x p.y r.origin.x r.size.height over p.x"),
              "");
    EXPECT_EQ(phone.operations,
              (std::vector<std::string>{"boot", "touchDown 5 6", "wait 0.05", "touchUp",
                                        "touchDown 5 6", "touchMove 1 4 5", "touchUp"}));
}

TEST_F(ScenarioTest, AKeyThatNoSettingHasIsWrittenAndSaid) {
    EXPECT_EQ(
        run("setting layoutDirecton 1\nsetting tapToOpen true"),
        "note: t.scenario:1: no setting is called 'layoutDirecton' (is layoutDirection meant?); "
        "it is written all the same\n");
    EXPECT_EQ(phone.operations,
              (std::vector<std::string>{"setting layoutDirecton 1", "setting tapToOpen true"}));
    EXPECT_EQ(failed, 0);
}

TEST_F(ScenarioTest, TreesArePrinted) {
    EXPECT_EQ(run("boot\ntree\ntree [ScenarioSpecimen shared]\ntree nil\nelements"),
              "the screen\nthe view\nt.scenario:4: tree nil: there is no view\nthe elements\n");
}

TEST_F(ScenarioTest, WhatCannotBeDrivenFailsItsLine) {
    EXPECT_EQ(run("boot\nlet s = -1\nwait s\nfilm \"f.png\" 0 over 1\ninterrupt nil\n"
                  "expect haptics 3 0\ntap (\"x\") 5"),
              "t.scenario:3: wait s: s is no time to let pass\n"
              "t.scenario:4: film \"f.png\" 0 over 1: a film has at least one frame\n"
              "t.scenario:5: interrupt nil: there is no view\n"
              "t.scenario:6: expected haptics 3 0, but an impact is 0 light, 1 medium or 2 heavy\n"
              "t.scenario:7: tap (\"x\") 5: \"x\" is no number\n");
}

TEST(ScenarioStatements, EveryFormHasHelp) {
    std::ostringstream help;
    printStatements(help);
    for (const StatementGroup& group : statementGroups()) {
        for (const Form& form : group.forms) {
            EXPECT_FALSE(form.help.empty()) << form.pattern;
            EXPECT_NE(help.str().find(std::string("  ") + std::string(form.pattern)),
                      std::string::npos);
        }
    }
}

}  // namespace
}  // namespace simulator::scenario
