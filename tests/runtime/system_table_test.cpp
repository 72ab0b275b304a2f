// Which system stands in for one that nobody looked at.
#include "simulator/runtime/system_table.hpp"

#include <gtest/gtest.h>

#include "simulator/runtime/presence.hpp"

namespace simulator {
namespace {

TEST(SystemTable, VersionsAreReleases) {
    EXPECT_EQ(releaseOf("11.0"), 1100);
    EXPECT_EQ(releaseOf("13.4.1"), 1304);
    EXPECT_EQ(releaseOf("14.8"), 1408);
    EXPECT_FALSE(releaseOf("10.3"));
    EXPECT_FALSE(releaseOf("11.5"));
    EXPECT_FALSE(releaseOf("15.0"));
    EXPECT_FALSE(releaseOf("new"));
}

TEST(SystemTable, EveryReleaseIsVisitedFromTheOldest) {
    std::vector<int> releases;
    eachRelease([&](int release) { releases.push_back(release); });
    EXPECT_EQ(releases.size(), 28u);  // 11.0 to .4, 12.0 to .5, 13.0 to .7, 14.0 to .8
    EXPECT_EQ(releases.front(), 1100);
    EXPECT_EQ(releases[5], 1200);
    EXPECT_EQ(releases.back(), 1408);
}

TEST(SystemTable, SomeSystemHasWhatAnyDid) {
    const auto three = "grabberTongueBeganPulling:withDistance:andVelocity:";
    EXPECT_TRUE(someSystemHas("SBFluidSwitcherGestureManager", Kind::method, three));
    EXPECT_TRUE(someSystemHas("UIColor", Kind::classMethod, "labelColor"));
    EXPECT_FALSE(someSystemHas("SBFluidSwitcherGestureManager", Kind::classMethod, three));
    EXPECT_FALSE(someSystemHas("SBSwitcherContainerView", Kind::type, ""));  // looked for in vain
}

TEST(SystemTable, WhatNoTableListsIsNotKnown) {
    EXPECT_FALSE(finding("SBNobody", Kind::type, "", 1300));
    EXPECT_FALSE(finding("SBMediaController", Kind::classMethod, "changeTrack:", 1300));
}

TEST(SystemTable, PublicNamesComeWithASystem) {
    EXPECT_EQ(finding("UIColor", Kind::classMethod, "labelColor", 1204)->found, Found::absent);
    EXPECT_EQ(finding("UIColor", Kind::classMethod, "labelColor", 1300)->found, Found::own);
}

TEST(SystemTable, OneOfTheSameMajorVersionStandsIn) {
    // Seen in 11.1 and 12.2; 11.4 is nearer to 12.2 than to 11.1 by nothing but its major version.
    const auto later = finding("SBMediaController", Kind::method, "changeTrack:", 1104);
    EXPECT_EQ(later->found, Found::own);
    EXPECT_EQ(later->followed, 1101);
    EXPECT_TRUE(later->lookedAt);  // 11 was looked at
}

TEST(SystemTable, TheNearestOfThemDoes) {
    const auto three = "grabberTongueBeganPulling:withDistance:andVelocity:";
    const auto before = finding("SBFluidSwitcherGestureManager", Kind::method, three, 1303);
    EXPECT_EQ(before->followed, 1302);  // and not 13.4, as far away on the other side
    EXPECT_EQ(before->found, Found::own);
    EXPECT_EQ(finding("SBFluidSwitcherGestureManager", Kind::method, three, 1304)->found,
              Found::absent);
}

TEST(SystemTable, AGenerationThatNobodyLookedAtIsSaidToBe) {
    // The module was seen from 13.5 on, and another in 11.3.1.
    const auto module = "DNDUIControlCenterModule";
    EXPECT_TRUE(finding(module, Kind::method, "_toggleStateForActive:", 1304)->lookedAt);
    const auto early = finding(module, Kind::method, "_toggleStateForActive:", 1302);
    EXPECT_EQ(early->found, Found::own);
    EXPECT_EQ(early->followed, 1305);
    EXPECT_FALSE(early->lookedAt);
    EXPECT_EQ(finding(module, Kind::type, "", 1204)->found, Found::absent);
}

TEST(SystemTable, BrightnessHasAnotherOwnerFromThirteenSixOn) {
    for (int release : {1100, 1204, 1300, 1303, 1305})
        EXPECT_EQ(finding("SBBrightnessController", Kind::type, "", release)->found, Found::own);
    for (int release : {1306, 1307, 1400, 1408})
        EXPECT_EQ(finding("SBBrightnessController", Kind::type, "", release)->found, Found::absent);
}

TEST(Presence, ThePhoneThatIsNotRealHasEveryNameForAllPhones) {
    EXPECT_TRUE(has("UIColor", Kind::classMethod, "labelColor"));
    EXPECT_TRUE(hasClass("SBSwitcherContainerView"));
    EXPECT_FALSE(has("SBMediaController", Kind::method, "changeTrack:", On::realPhones));
}

TEST(Presence, ARealPhoneHasWhatItsSystemHas) {
    makeReal(1104);
    EXPECT_FALSE(has("UIColor", Kind::classMethod, "labelColor"));
    EXPECT_TRUE(has("SBMediaController", Kind::method, "changeTrack:", On::realPhones));
    EXPECT_FALSE(has("SBMediaController", Kind::method, "changeTrack:eventSource:"));
    EXPECT_TRUE(has("SBMediaController", Kind::method, "partOfThePhoneAlone"));
    EXPECT_FALSE(has("SBMediaController", Kind::method, "noTableHasIt", On::realPhones));
    EXPECT_FALSE(hasClass("SBSwitcherContainerView"));
}

}  // namespace
}  // namespace simulator
