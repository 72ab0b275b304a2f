// The settings: defaults, conversions, what a reload changes and what only a new start does.
#include "settings/settings_file.hpp"

#include <nlohmann/json.hpp>

#include "tests/library_phone.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/settings_reload.hpp"

namespace vantori::tests {
namespace {

class Settings : public LibraryPhone {};

constexpr const char* settingsFile = "/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist";

void expectDefaults() {
    EXPECT_TRUE(enabled);
    EXPECT_TRUE(enabledAtLaunch);
    EXPECT_FALSE(replaceCC);
    EXPECT_FALSE(reachability);
    EXPECT_EQ(layoutDirection, 3);
    EXPECT_FALSE(noCornerRadius);
    EXPECT_TRUE(tapToOpen);
    EXPECT_TRUE(alwaysSpringBoardStyle);
    EXPECT_TRUE(leftGestureEnabled);
    EXPECT_FALSE(middleGestureEnabled);
    EXPECT_FALSE(rightGestureEnabled);
}

TEST(SettingsBeforeStart, HoldTheirInitialValues) {
    EXPECT_TRUE(enabled);
    EXPECT_TRUE(enabledAtLaunch);
    EXPECT_TRUE(replaceCC);
    EXPECT_FALSE(reachability);
    EXPECT_EQ(layoutDirection, 3);
    EXPECT_FALSE(settingsLoaded);
    EXPECT_EQ(middleZoneWidth, 0);
    EXPECT_EQ(MAX_SIZE, 0);
    EXPECT_EQ(CORNER_RADIUS, 0);
}

TEST_F(Settings, DefaultsWithoutAFile) {
    boot();
    expectDefaults();
    EXPECT_TRUE(settingsLoaded);
    EXPECT_EQ(MAX_SIZE, stackedHeight(VNTToolBarController::shared()));
    EXPECT_DOUBLE_EQ(middleZoneWidth, 125);
    EXPECT_DOUBLE_EQ(leftZoneEnd, 125);
    EXPECT_DOUBLE_EQ(rightZoneStart, 250);
}

TEST_F(Settings, DefaultsWithRandomBytes) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>((i * 7919 + i / 3) % 251);
    phone_->file(settingsFile, bytes);
    boot();
    expectDefaults();
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Settings, DefaultsWithAFileOfAnotherRoot) {
    phone_->plist(settingsFile, nlohmann::json::array({1, 2, 3}));
    boot();
    expectDefaults();
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Settings, AreReadWithTheConversionsOfTheObjects) {
    set("middleGestureEnabled", "yes");
    set("leftGestureEnabled", 0);
    set("rightGestureEnabled", 0.5);
    set("tapToOpen", "no");
    set("layoutDirection", "1abc");
    boot();
    EXPECT_TRUE(middleGestureEnabled);
    EXPECT_FALSE(leftGestureEnabled);
    EXPECT_TRUE(rightGestureEnabled);
    EXPECT_FALSE(tapToOpen);
    EXPECT_EQ(layoutDirection, 1);
}

TEST_F(Settings, ThatCannotBeConvertedReadAsZero) {
    set("leftGestureEnabled", nlohmann::json::array());
    set("layoutDirection", nlohmann::json::object());
    boot();
    EXPECT_FALSE(leftGestureEnabled);
    EXPECT_EQ(layoutDirection, 0);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Settings, AReloadReadsTheFileAfresh) {
    boot();
    set("leftGestureEnabled", false);
    set("middleGestureEnabled", true);
    set("rightGestureEnabled", true);
    set("tapToOpen", false);
    set("alwaysSpringBoardStyle", false);
    set("layoutDirection", 1);
    EXPECT_TRUE(leftGestureEnabled);
    announceSettings();
    EXPECT_FALSE(leftGestureEnabled);
    EXPECT_TRUE(middleGestureEnabled);
    EXPECT_TRUE(rightGestureEnabled);
    EXPECT_FALSE(tapToOpen);
    EXPECT_FALSE(alwaysSpringBoardStyle);
    EXPECT_EQ(layoutDirection, 1);
    EXPECT_EQ(MAX_SIZE, 115);
    auto allows = [](VNTToolBarController toolbar) {
        return toolbar.page<VNTMediaPlayerViewController>().send<"allowOpenNowPlayingApp", bool>();
    };
    EXPECT_FALSE(allows(VNTToolBarController::shared()));
    EXPECT_FALSE(allows(VNTSBToolBarController::shared()));
}

TEST_F(Settings, AReloadAfterTheFileIsGoneRestoresTheDefaults) {
    set("leftGestureEnabled", false);
    set("layoutDirection", 1);
    boot();
    phone_->remove(settingsFile);
    announceSettings();
    expectDefaults();
    EXPECT_EQ(MAX_SIZE, stackedHeight(VNTToolBarController::shared()));
}

TEST_F(Settings, TheSwitchesOfTheStartWaitForTheNextOne) {
    boot();
    set("enabled", false);
    set("replaceCC", true);
    set("reachability", true);
    enabled = false;
    announceSettings();
    EXPECT_TRUE(enabled);
    EXPECT_FALSE(replaceCC);
    EXPECT_FALSE(reachability);
}

TEST_F(Settings, GestureLocationChangesNothing) {
    set("gestureLocation", 2);
    boot();
    expectDefaults();
    const double border = leftZoneEnd;
    set("gestureLocation", 1);
    announceSettings();
    expectDefaults();
    EXPECT_EQ(leftZoneEnd, border);
}

TEST_F(Settings, OnceTheToolbarsAreThereTheyCountAsLoaded) {
    boot();
    settingsLoaded = false;
    announceSettings();
    EXPECT_TRUE(settingsLoaded);
}

// Only with another arrangement do the pages take another height.
TEST_F(Settings, AReloadOfThePagesAloneLeavesTheHeightOfPulls) {
    boot();
    MAX_SIZE = 7;
    phone_->postDarwin("com.ferolin.vantori.refresh-all-toggles");
    phone_->wait(0.1);
    EXPECT_EQ(MAX_SIZE, 7);
    set("layoutDirection", 1);
    phone_->postDarwin("com.ferolin.vantori.refresh-all-toggles");
    phone_->wait(0.1);
    EXPECT_EQ(MAX_SIZE, 115);
}

TEST_F(Settings, NoCornerRadiusAtRunTimeKeepsTheRadius) {
    boot();
    EXPECT_EQ(CORNER_RADIUS, 30);
    set("noCornerRadius", true);
    announceSettings();
    EXPECT_TRUE(noCornerRadius);
    EXPECT_EQ(CORNER_RADIUS, 30);
    EXPECT_EQ(VNTSBToolBarController::shared().view().layer().cornerRadius(), 0);
    set("noCornerRadius", false);
    announceSettings();
    EXPECT_EQ(VNTSBToolBarController::shared().view().layer().cornerRadius(), 30);
}

TEST_F(Settings, NoCornerRadiusAtTheStartMakesItZero) {
    set("noCornerRadius", true);
    boot();
    EXPECT_EQ(CORNER_RADIUS, 0);
    EXPECT_EQ(VNTSBToolBarController::shared().view().layer().cornerRadius(), 0);
}

TEST_F(Settings, HideGrabberFollowsTheFileAtLoadAndTheReload) {
    set("hideGrabber", true);
    boot();
    auto alphas = [] {
        return std::pair(VNTToolBarController::shared().grabberView().alpha(),
                         VNTSBToolBarController::shared().grabberView().alpha());
    };
    EXPECT_EQ(alphas(), std::pair(0.0, 0.0));
    set("hideGrabber", false);
    announceSettings();
    EXPECT_EQ(alphas(), std::pair(0.5, 0.5));
    set("hideGrabber", true);
    announceSettings();
    EXPECT_EQ(alphas(), std::pair(0.0, 0.0));
}

// Before the toolbars exist a reload touches the plain variables and the radius, and makes none.
TEST_F(Settings, AReloadBeforeTheToolbarsMakesNone) {
    simulator::setExtensionLoader([] {
        startUp();
        EXPECT_FALSE(VNTToolBarController::exists());
        EXPECT_FALSE(VNTSBToolBarController::exists());
        EXPECT_EQ(CORNER_RADIUS, 30);
        EXPECT_EQ(MAX_SIZE, 0);
        CORNER_RADIUS = 0;
        settingsLoaded = false;
        reloadSettings();
        EXPECT_FALSE(VNTToolBarController::exists());
        EXPECT_FALSE(VNTSBToolBarController::exists());
        EXPECT_EQ(CORNER_RADIUS, 30);
        EXPECT_FALSE(settingsLoaded);
    });
    boot();
}

}  // namespace
}  // namespace vantori::tests
