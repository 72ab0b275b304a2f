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
    // A phone that dies when it is asked to lock.
    struct Mortal : FakePhone {
        void lock() override { std::abort(); }
    };

    int runAll(const std::vector<std::string>& files, const RunOptions& options = {}) {
        const auto maker = [](const PhoneOptions& phoneOptions) -> std::unique_ptr<Phone> {
            if (!phoneOptions.root.empty()) std::cout << phoneOptions.root.string() << std::endl;
            return std::make_unique<Mortal>();
        };
        output.str("");
        return runFiles(files, options, maker, output);
    }
};

TEST_F(ScenarioRunningSeveral, TheWorstStatusWinsAndTheOrderIsKept) {
    const std::string a = write("a", "print 1");
    const std::string b = write("b", "nonsense");
    const std::string c = write("c", "expect NO");
    const auto order = {a, b, c};
    for (unsigned jobs : {1U, 3U}) {
        RunOptions options;
        options.jobs = jobs;
        EXPECT_EQ(runAll(order, options), 2);
        std::size_t place = 0;
        for (const std::string& file : order) {
            const std::size_t found = output.str().find(file + "\n");
            EXPECT_GE(found, place);
            place = found;
        }
        EXPECT_TRUE(output.str().starts_with(a + "\n1\n0 held, 0 failed\n" + b + "\n"));
        EXPECT_TRUE(output.str().ends_with("failed:\n  " + b + "\n  " + c +
                                           "\n3 files: 1 held, 2 failed\n"));
    }
    EXPECT_EQ(runAll({a, c}), 1);
    EXPECT_EQ(runAll({a, a}), 0);
}

TEST_F(ScenarioRunningSeveral, EachHasAFolderOfItsOwn) {
    RunOptions options;
    options.root = "/root";
    EXPECT_EQ(runAll({write("a", ""), write("b", "")}, options), 0);
    EXPECT_NE(output.str().find("/root/a\n"), std::string::npos);
    EXPECT_NE(output.str().find("/root/b\n"), std::string::npos);
}

TEST_F(ScenarioRunningSeveral, AProcessThatASignalEndedHasFailed) {
    const std::string dying = write("a", "boot\nprint 1\nlock");
    const std::string other = write("b", "print 2");
    EXPECT_EQ(runAll({dying, other}), 1);
    EXPECT_EQ(output.str(), dying + "\n1\nthe phone was ended by signal 6 (Aborted)\n" + other +
                                "\n2\n0 held, 0 failed\nfailed:\n  " + dying +
                                "\n2 files: 1 held, 1 failed\n");
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
