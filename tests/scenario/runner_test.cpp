// Whole files: exit statuses, the line of counts, several files, and the console.
#include "simulator/scenario/runner.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "simulator/scenario/console.hpp"
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
            return std::make_unique<FakePhone>();
        };
        return runFile(file, options, maker, output, errors);
    }

    fs::path folder;
    fs::path root;
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
    EXPECT_EQ(errors.str(), file + ":1:1: No such file or directory\n");
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
    EXPECT_EQ(run(file, {folder / "out", {}}), 0);
    EXPECT_TRUE(fs::is_directory(folder / "out/deep"));
}

TEST_F(ScenarioRunning, ThePhoneIsToldItsRoot) {
    run(write("a", ""), {{}, "/some/root"});
    EXPECT_EQ(root, "/some/root");
}

class ScenarioRunningSeveral : public ScenarioRunning {
  protected:
    // A stand-in for the program that notes its arguments and ends as the file's text says.
    fs::path program() {
        const fs::path file =
            write("program", "#!/bin/sh\necho \"$@\" >> " + (folder / "log").string() +
                                 "\nfor last; do :; done\n. \"$last\"\n");
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }
    std::string log() {
        std::ostringstream text;
        text << std::ifstream(folder / "log").rdbuf();
        return text.str();
    }
};

TEST_F(ScenarioRunningSeveral, TheWorstStatusWinsAndTheOrderIsKept) {
    const std::string a = write("a", "exit 0");
    const std::string b = write("b", "exit 2");
    const std::string c = write("c", "exit 1");
    EXPECT_EQ(runFilesApart({a, b, c}, {}, program()), 2);
    EXPECT_EQ(log(), "run -- " + a + "\nrun -- " + b + "\nrun -- " + c + "\n");
    EXPECT_EQ(runFilesApart({a, c}, {}, program()), 1);
    EXPECT_EQ(runFilesApart({a, a}, {}, program()), 0);
}

TEST_F(ScenarioRunningSeveral, FoldersArePassedOn) {
    const std::string a = write("a", "exit 0");
    EXPECT_EQ(runFilesApart({a}, {"/out", "/root"}, program()), 0);
    EXPECT_EQ(log(), "run --out /out --root /root -- " + a + "\n");
}

TEST_F(ScenarioRunningSeveral, AProcessThatASignalEndedHasFailed) {
    EXPECT_EQ(runFilesApart({write("a", "kill -SEGV $$")}, {}, program()), 1);
    EXPECT_EQ(runFilesApart({write("b", "exit 0")}, {}, folder / "no program"), 2);
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
              "console:3: expected NO, got NO\n"
              "5\n");
    EXPECT_EQ(result.status, 1);
}

TEST(ScenarioConsole, QuitsAndHelps) {
    const Talk result = talk("help\nquit\nprint 5\n");
    EXPECT_NE(result.output.find("pull EDGE D over S [flick V]"), std::string::npos);
    EXPECT_EQ(result.output.find("\n5\n"), std::string::npos);
}

TEST(ScenarioConsole, PromptsWhenSomeoneIsThere) {
    EXPECT_NE(talk("", true).output.find("> "), std::string::npos);
    EXPECT_EQ(talk("").output, "");
}

}  // namespace
}  // namespace simulator::scenario
