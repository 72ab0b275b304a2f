// Whole files: exit statuses, the line of counts, several files, and the console.
#include "simulator/scenario/runner.hpp"

#include <gtest/gtest.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "simulator/scenario/console.hpp"
#include "simulator/scenario/parser.hpp"
#include "tests/scenario/fake_phone.hpp"

namespace simulator::scenario {
namespace {

namespace fs = std::filesystem;

class ScenarioRunning : public ::testing::Test {
  protected:
    void SetUp() override {
        folder = fs::temp_directory_path() / ("scenario-test-" + std::to_string(getpid()));
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(folder / name) << text;
        return (folder / name).string();
    }

    int run(const std::string& file, const RunOptions& options = {}) {
        const auto maker = [this](const PhoneOptions& phoneOptions) {
            ++phones;
            root = phoneOptions.root;
            return std::make_unique<Told>(operations);
        };
        return runFile(file, options, maker, output, errors);
    }

    // Leaves what it was told behind.
    struct Told : FakePhone {
        explicit Told(std::vector<std::string>& where) : left(where) {}
        ~Told() override { left = operations; }
        std::vector<std::string>& left;
    };

    fs::path folder;
    fs::path root;
    std::vector<std::string> operations;
    int phones = 0;
    std::ostringstream output;
    std::ostringstream errors;
};

TEST_F(ScenarioRunning, StatusZeroWhenAllHeld) {
    EXPECT_EQ(run(write("a", "boot\nprint 1\nexpect 1 == 1\nexpect YES\n")), 0);
    EXPECT_EQ(output.str(), "1\n2 held, 0 failed\n");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(ScenarioRunning, StatusOneWhenAnExpectationFailed) {
    const std::string file = write("a", "expect 1 == 2\nexpect 1 == 1");
    EXPECT_EQ(run(file), 1);
    EXPECT_EQ(output.str(), file + ":1: expected 1 == 2, got 1\n1 held, 1 failed\n");
}

TEST_F(ScenarioRunning, StatusOneWhenAnotherStatementFailed) {
    EXPECT_EQ(run(write("a", "do [NSObject nope]")), 1);
}

TEST_F(ScenarioRunning, StatusTwoAndNoPhoneWhenMalformed) {
    const std::string file = write("a", "print 1\nboot\nboot");
    EXPECT_EQ(run(file), 2);
    EXPECT_EQ(errors.str(), file + ":3:1: the phone has booted already\n");
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(phones, 0);
}

TEST_F(ScenarioRunning, StatusTwoWhenUnreadable) {
    const std::string file = (folder / "none").string();
    EXPECT_EQ(run(file), 2);
    EXPECT_EQ(errors.str(), file + ": cannot be read: No such file or directory\n");
    EXPECT_EQ(run(folder.string()), 2);
}

TEST_F(ScenarioRunning, AnEmptyFileHolds) {
    EXPECT_EQ(run(write("a", "")), 0);
    EXPECT_EQ(output.str(), "0 held, 0 failed\n");
}

TEST_F(ScenarioRunning, PicturesGoBesideTheFileOrWhereTheyAreSent) {
    const std::string file = write("a", "boot\nshot \"deep/a.png\"");
    EXPECT_EQ(run(file), 0);
    EXPECT_TRUE(fs::is_directory(folder / "deep"));
    RunOptions options;
    options.pictures = folder / "out";
    EXPECT_EQ(run(file, options), 0);
    EXPECT_TRUE(fs::is_directory(folder / "out/deep"));
}

TEST_F(ScenarioRunning, ThePhoneIsToldItsRoot) {
    RunOptions options;
    options.root = "/some/root";
    run(write("a", ""), options);
    EXPECT_EQ(root, "/some/root");
}

TEST_F(ScenarioRunning, AFileThatDidNotBootEndsThere) {
    const auto maker = [](const PhoneOptions&) {
        auto phone = std::make_unique<FakePhone>();
        phone->refusal = "no battery";
        return phone;
    };
    const std::string file = write("a", "boot\nwait 1\nexpect NO");
    EXPECT_EQ(runFile(file, {}, maker, output, errors), 1);
    EXPECT_EQ(output.str(), file + ":1: boot: no battery\n0 held, 1 failed\n");
}

TEST_F(ScenarioRunning, WhatTheCommandSaysHoldsForAFileThatDoesNotSayOtherwise) {
    RunOptions options;
    options.device = "iPhone8,1";
    options.system = "12.4";
    const auto json = [](auto value) { return std::make_shared<const nlohmann::json>(value); };
    options.settings = {{"layoutDirection", json(1)}, {"tapToOpen", json(false)}};
    EXPECT_EQ(run(write("a", "system 13.5\nsetting tapToOpen true\nboot"), options), 0);
    EXPECT_EQ(operations,
              (std::vector<std::string>{"device iPhone8,1", "setting layoutDirection 1",
                                        "system 13.5", "setting tapToOpen true", "boot"}));
}

class ScenarioRunningSeveral : public ScenarioRunning {
  protected:
    // A phone that dies when it is asked to lock.
    struct Mortal : FakePhone {
        void lock() override { std::abort(); }
        void unlock() override { _exit(3); }
    };

    int runAll(const std::vector<std::string>& files, const RunOptions& options = {}) {
        const auto maker = [](const PhoneOptions& phoneOptions) {
            auto phone = std::make_unique<Mortal>();
            if (!phoneOptions.root.empty()) fs::create_directories(phoneOptions.root);
            return phone;
        };
        return runFiles(files, options, maker, output);
    }
};

TEST_F(ScenarioRunningSeveral, TheWorstStatusWinsAndTheOrderIsKept) {
    const std::string a = write("a", "expect YES");
    const std::string b = write("b", "jump");
    const std::string c = write("c", "print 5\nexpect NO == YES");
    for (const unsigned jobs : {1U, 3U}) {
        RunOptions options;
        options.jobs = jobs;
        EXPECT_EQ(runAll({a, b, c}, options), 2);
        EXPECT_EQ(output.str(),
                  "[1/3] " + a + ": 1 held, 0 failed\n[2/3] " + b + "\n" + b +
                      ":1:1: there is no statement 'jump'\n[3/3] " + c + "\n5\n" + c +
                      ":2: expected NO == YES, got NO\n0 held, 1 failed\nfailed:\n  " + b +
                      " (cannot be run)\n  " + c +
                      " (0 held, 1 failed)\n3 files: 1 held, 2 failed; 1 expectations "
                      "held, 1 failed\n");
        output.str("");
    }
    EXPECT_EQ(runAll({a, c}), 1);
    EXPECT_EQ(runAll({a, a}), 0);
}

TEST_F(ScenarioRunningSeveral, EachFileHasARootOfItsOwn) {
    fs::create_directories(folder / "deep");
    RunOptions options;
    options.root = folder / "roots";
    EXPECT_EQ(
        runAll({write("a.scenario", ""), write("b.scenario", ""), write("deep/a.scenario", "")},
               options),
        0);
    for (const char* name : {"a", "b", "a-2"}) EXPECT_TRUE(fs::exists(options.root / name)) << name;
}

TEST_F(ScenarioRunningSeveral, ItCanStopAtTheFirstThatFailed) {
    RunOptions options;
    options.stopAtFirst = true;
    EXPECT_EQ(runAll({write("a", "expect NO"), write("b", "expect YES")}, options), 1);
    EXPECT_TRUE(output.str().ends_with(
        "2 files: 0 held, 1 failed, 1 not run; 0 expectations held, 1 failed\n"))
        << output.str();
}

TEST_F(ScenarioRunningSeveral, APhoneThatDiesNamesItsStatement) {
    const std::string file = write("a", "boot\nexpect YES\n\nlock # now\nexpect YES");
    EXPECT_EQ(runAll({file}), 1);
    EXPECT_TRUE(output.str().starts_with(file + ":4: lock: the phone died: Aborted\n"))
        << output.str();
    EXPECT_TRUE(output.str().ends_with("1 held, 1 failed\n")) << output.str();
}

TEST_F(ScenarioRunningSeveral, APhoneThatEndsItsProcessHasDied) {
    const std::string file = write("a", "boot\nunlock");
    EXPECT_EQ(runAll({file, write("b", "expect YES")}), 1);
    EXPECT_NE(
        output.str().find(file + ":2: unlock: the phone died: something ended its process with "
                                 "status 3\n"),
        std::string::npos)
        << output.str();
    EXPECT_NE(output.str().find(file + " (0 held, 1 failed, the phone died)"), std::string::npos);
}

TEST_F(ScenarioRunningSeveral, AReportTellsPeopleAndMachines) {
    RunOptions options;
    options.report = folder / "report";
    EXPECT_EQ(
        runAll({write("a", "boot\nexpect \"<&>\" == \"b\""), write("b", "expect YES")}, options),
        1);
    const std::string page = readFile(options.report / "index.html");
    EXPECT_NE(page.find("1 failure</span>"), std::string::npos);
    EXPECT_NE(page.find("&quot;&lt;&amp;&gt;&quot; == &quot;b&quot;"), std::string::npos);
    EXPECT_NE(page.find("1-1.png"), std::string::npos);
    EXPECT_EQ(page.find("<&>"), std::string::npos);
    const std::string machines = readFile(options.report / "junit.xml");
    EXPECT_NE(machines.find("tests=\"2\" failures=\"1\" errors=\"0\""), std::string::npos);
    EXPECT_NE(machines.find("<failure message=\"expected &quot;&lt;&amp;&gt;&quot;"),
              std::string::npos);
    // The notes of the phones' processes are taken up.
    for (const auto& entry : fs::directory_iterator(options.report))
        EXPECT_NE(entry.path().extension(), ".notes");
}

struct Talk {
    int status;
    std::string output;
};

Talk talk(const std::string& lines, bool prompt = false) {
    FakePhone phone;
    std::istringstream input(lines);
    std::ostringstream output;
    const int status = runConsole(phone, {{}, prompt}, input, output);
    return {status, output.str()};
}

TEST(ScenarioConsole, RemembersNamesAndThatThePhoneBooted) {
    const Talk result = talk("let a = 2\nboot\nwait a\nprint a + 1\nexpect a == 2\n");
    EXPECT_EQ(result.output, "3\n");
    EXPECT_EQ(result.status, 0);
}

TEST(ScenarioConsole, GoesOnAfterMalformedLinesAndFailures) {
    const Talk result = talk("jump\nwait 1\nexpect NO\nprint 5");
    EXPECT_EQ(result.output,
              "console:1:1: there is no statement 'jump'\n"
              "console:2:1: 'wait' must stand after 'boot'\n"
              "console:3: expected NO to be YES or not nil, got NO\n"
              "5\n");
    EXPECT_EQ(result.status, 1);
}

TEST(ScenarioConsole, QuitsAndHelps) {
    const Talk result = talk("help\nquit\nprint 5\n");
    EXPECT_NE(result.output.find("pull EDGE D over S [flick V]"), std::string::npos);
    EXPECT_EQ(result.output.find("\n5\n"), std::string::npos);
}

TEST(ScenarioConsole, ExplainsOneStatement) {
    EXPECT_EQ(
        talk("help shot").output,
        "  shot FILE [at SCALE]                    a picture of the screen as it is now, SCALE "
        "pixels a point\n");
    EXPECT_EQ(talk("help tip").output,
              "console:1: help tip: there is no statement 'tip' (is tap meant?)\n");
}

TEST(ScenarioConsole, LooksIntoThePhone) {
    EXPECT_EQ(talk("hooks\njournal 7\njournal x").output,
              "the hooks\nthe journal\n7\n"
              "console:3: journal x: expected a number of lines, got 'x'\n");
    EXPECT_EQ(talk("watch log\nwatch off\nwatch it").output,
              "something happened\n"
              "console:3: watch it: expected notifications, calls, log or off, got 'it'\n");
}

TEST(ScenarioConsole, PromptsWhenSomeoneIsThere) {
    EXPECT_NE(talk("", true).output.find("> "), std::string::npos);
    EXPECT_EQ(talk("").output, "");
}

}  // namespace
}  // namespace simulator::scenario
