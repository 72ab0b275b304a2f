// Every mistake that a scenario can have is told with its place, in words that say what to do, and by
// the status of the run. On a phone as it is run from the command line, without the library.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "simulator/phone/temporary_root.hpp"
#include "simulator/scenario/runner.hpp"

namespace simulator::scenario {
namespace {

struct Mistake {
    const char* name;
    const char* text;
    int status;
    // Behind the file's name; of a malformed file all that is said.
    const char* said;
};

void PrintTo(const Mistake& mistake, std::ostream* output) { *output << mistake.name; }

class Mistakes : public testing::TestWithParam<Mistake> {};

TEST_P(Mistakes, AreToldWithPlaceWordsAndStatus) {
    const TemporaryRoot folder({});
    const std::string file = (folder.path() / "a.scenario").string();
    std::ofstream(file) << GetParam().text;
    std::ostringstream output, errors;
    EXPECT_EQ(runFile(file, {}, makePhone, output, errors), GetParam().status);
    const std::string said = file + GetParam().said + "\n";
    if (GetParam().status == 2) {
        EXPECT_EQ(errors.str(), said);
        EXPECT_EQ(output.str(), "");
    } else {
        EXPECT_EQ(errors.str(), "");
        EXPECT_EQ(output.str().substr(0, said.size()), said);
    }
}

INSTANTIATE_TEST_SUITE_P(
    BeforeAnythingRuns, Mistakes,
    testing::Values(
        Mistake{"device", "device iPhone99,9\nboot\n", 2,
                ":1:8: there is no device 'iPhone99,9' (`vantori-simulator devices` lists them)"},
        Mistake{"deviceNearly", "device iPhone10,33\nboot\n", 2,
                ":1:8: there is no device 'iPhone10,33' (is iPhone10,3 meant?)"},
        Mistake{"system", "system 99.0\nboot\n", 2,
                ":1:8: there is no system 99.0: they are 11.0 to 14.8"},
        Mistake{"systemBefore", "system 10.3\nboot\n", 2,
                ":1:8: there is no system 10.3: they are 11.0 to 14.8"},
        Mistake{"systemAfter", "system 14.9\nboot\n", 2,
                ":1:8: there is no system 14.9: they are 11.0 to 14.8"},
        Mistake{"json", "boot\nsetting layoutDirection one\n", 2,
                ":2:25: this is no JSON, as true, 3 and \"a text\" are"},
        Mistake{"statement", "boot\ntip 1 2\n", 2,
                ":2:1: there is no statement 'tip' (is tap meant?)"}),
    [](const auto& each) { return std::string(each.param.name); });

INSTANTIATE_TEST_SUITE_P(
    WhileItRuns, Mistakes,
    testing::Values(
        Mistake{"className", "without extension\nboot\nexpect called SBMediaControler foo 0\n", 1,
                ":3: expected called SBMediaControler foo 0, but there is no class "
                "SBMediaControler (is SBMediaController meant?)"},
        Mistake{"unhookedClass", "without extension\nboot\nexpect unhooked Typo foo\n", 1,
                ":3: expected unhooked Typo foo, but there is no class Typo"},
        Mistake{"selector",
                "without extension\nboot\n"
                "expect called SBLockScreenManager lockUIFromSource:withOption: 0\n",
                1,
                ":3: expected called SBLockScreenManager lockUIFromSource:withOption: 0, but "
                "SBLockScreenManager has no method lockUIFromSource:withOption: (is "
                "lockUIFromSource:withOptions: meant?)"},
        Mistake{
            "order", "without extension\nboot\nexpect order called SBLockScreenManager foo\n", 1,
            ":3: expected order called SBLockScreenManager foo, but SBLockScreenManager has no method "
            "foo"},
        Mistake{"classOfAnotherSystem",
                "real\nsystem 12.4\nwithout extension\nboot\n"
                "expect called MediaControlsVolumeController foo 0\n",
                1,
                ":5: expected called MediaControlsVolumeController foo 0, but there is no class "
                "MediaControlsVolumeController"},
        Mistake{"offTheScreen", "without extension\nboot\ntap 1000 10\n", 1,
                ":3: tap 1000 10: that is off the screen, which is {375, 812}"},
        Mistake{"noTruth", "without extension\nboot\nexpect 0\n", 1,
                ":3: expected 0 to be YES or not nil, got 0"},
        Mistake{"otherObject",
                "without extension\nboot\nlet a = [[UIView new] autorelease]\n"
                "expect [[UIView new] autorelease] == a\n",
                1, ":4: expected [[UIView new] autorelease] == a, got another <UIView>"},
        Mistake{"realSystem", "real\nsystem 13.9\nboot\nwait 1\n", 1,
                ":3: boot: no real system 13.9 is known: 11.0 to 14.8 are\n0 held, 1 failed"}),
    [](const auto& each) { return std::string(each.param.name); });

// A later system calls it otherwise, an earlier one has it; what is not to be called on either is said so.
TEST(NoMistake, IsAMethodThatSomeSystemHasOrAClassThatWasTakenAway) {
    const TemporaryRoot folder({});
    const std::string file = (folder.path() / "a.scenario").string();
    std::ofstream(file) << "real\nsystem 14.2\nmissing class SBDockView\nwithout extension\nboot\n"
                           "expect called SBFluidSwitcherGestureManager "
                           "grabberTongueBeganPulling:withDistance:andVelocity: 0\n"
                           "expect unhooked SBFluidSwitcherGestureManager "
                           "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:\n"
                           "expect unhooked SBDockView anything\n";
    std::ostringstream output, errors;
    EXPECT_EQ(runFile(file, {}, makePhone, output, errors), 0) << output.str();
    EXPECT_EQ(output.str(), "3 held, 0 failed\n");
}

// What reads the settings file does not mind, so this is no failure.
TEST(NoMistake, IsASettingThatNothingReadsButItIsRemarkedOn) {
    const TemporaryRoot folder({});
    const std::string file = (folder.path() / "a.scenario").string();
    std::ofstream(file) << "setting tapToOpn true\n";
    std::ostringstream output, errors;
    EXPECT_EQ(runFile(file, {}, makePhone, output, errors), 0);
    EXPECT_EQ(output.str(), "note: " + file +
                                ":1: no setting is called 'tapToOpn' (is tapToOpen meant?); it is "
                                "written all the same\n0 held, 0 failed\n");
}

TEST(MissingFile, IsNamedWithoutAPlace) {
    std::ostringstream output, errors;
    EXPECT_EQ(runFile("/nowhere/a.scenario", {}, makePhone, output, errors), 2);
    EXPECT_EQ(errors.str(), "/nowhere/a.scenario: cannot be read: No such file or directory\n");
}

}  // namespace
}  // namespace simulator::scenario
