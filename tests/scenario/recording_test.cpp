// What is done to a phone is written as statements that do exactly the same again.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/scenario/fixture.hpp"

namespace simulator::scenario {
namespace {

namespace fs = std::filesystem;

class Recording : public ScenarioTest {
  protected:
    void SetUp() override {
        ScenarioTest::SetUp();
        file = fs::temp_directory_path() / ("recording-" + std::to_string(getpid()));
    }
    void TearDown() override { fs::remove(file); }

    // What is recorded of the text, without the line that says what it is.
    std::string recorded(const std::string& before, const std::string& text) {
        EXPECT_EQ(run(before + "\nrecord \"" + file.string() + "\"\n" + text + "\nrecord off\n"),
                  "");
        const std::string all = readFile(file);
        return all.substr(all.find('\n') + 1);
    }

    fs::path file;
};

TEST_F(Recording, ComesBackAsTheSameOperations) {
    const std::string done =
        "home\nlock\nunlock\nopen com.a\nrotate landscape-left\nappearance dark\n"
        "touch down 0.1 2\ntouch move 1 2.5 over 0.25\ntouch up\ntouch cancel\ntap 5 6\n"
        "drag 1 2 3 4 over 1\ngrabber updated 1 2 -3\nccgrabber began 1 2 3\n"
        "statusbar changed 1 2 3\npull 1 2 over 3\npull 1 2 over 3 flick -4\nringer 0.5\n"
        "volume-key down\nbrightness 0.3\nroute Speaker\nplay \"A\\n\" \"\\\"\" \"\" \"\" com.b\n"
        "playing no\nnothing-playing\nplayer-callbacks other\ntoggle flashlight on\n"
        "tap label \"Done\"\npost \"A note\"\ndarwin com.a\nrecents com.a com.b\n"
        "date 2021-06-01 21:05:07\n"
        "setting tapToOpen none\nplist /a.plist {\"a\": [1, 2.5]}\nfile /b \"c\"\ndelete /b\n"
        "wait 0.5\nwait 0.25 times 3\nwait 0.5 times 2\n";
    const std::string again = recorded("dock 3\nsystem 12.4\nboot", done);
    const std::vector<std::string> first = phone.operations;
    phone.operations.clear();
    EXPECT_EQ(run(again), "");
    EXPECT_EQ(phone.operations, first);
}

TEST_F(Recording, BeginsWithWhatThePhoneIs) {
    EXPECT_EQ(recorded("device iPhone8,1\nsetting enabled true\nboot\nhome", "lock"),
              "device \"iPhone8,1\"\nsetting \"enabled\" true\nboot\nlock\n");
    EXPECT_EQ(recorded("", "device iPhone8,1\nboot\nhome"), "device \"iPhone8,1\"\nboot\nhome\n");
}

TEST_F(Recording, KeepsEveryPassOfTimeByItself) {
    EXPECT_EQ(
        recorded("boot", "wait 0.016666666666666666\nwait 0.016666666666666666\nhome\nwait 1"),
        "boot\nwait 0.016666666666666666 times 2\nhome\nwait 1\n");
}

TEST_F(Recording, WhatWasRefusedIsNotThere) {
    run("boot\nrecord \"" + file.string() + "\"\nvolume 0.5\nhome");
    const std::string all = readFile(file);
    EXPECT_TRUE(all.ends_with("\nboot\nhome\n")) << all;
}

TEST_F(Recording, MessagesAreKeptWithTheNamesThatTheyUse) {
    EXPECT_EQ(recorded("let s = [ScenarioSpecimen shared]\nboot",
                       "do [s doNothing]\nexpect 1\ninterrupt s"),
              "boot\nlet s = [ScenarioSpecimen shared]\ndo [s doNothing]\ninterrupt s\n");
}

TEST_F(Recording, AFileThatCannotBeWrittenFailsTheLine) {
    EXPECT_EQ(run("record \"/proc/none/a\""),
              "t.scenario:1: record \"/proc/none/a\": cannot make /proc/none: No such file or "
              "directory\n");
}

}  // namespace
}  // namespace simulator::scenario
