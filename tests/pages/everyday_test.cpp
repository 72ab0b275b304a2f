// The everyday page: its row by the list file, its switches, and the panels that slide over it. The
// screen is 375 points wide; n toggles leave gaps of (375 - 50 n) / (n + 1).
#include "pages/everyday_page.hpp"

#include <nlohmann/json.hpp>

#include "tests/toggles/toggle_phone.hpp"

namespace vantori::tests {
namespace {

constexpr const char* listPath =
    "/var/mobile/Library/Preferences/com.ferolin.VNTDailyToggleList.plist";
constexpr const char* refreshNotification = "com.ferolin.vantori.refresh-all-daily-toggles";

class Everyday : public TogglePhone {
  protected:
    using Page = VNTDailyToolBarViewController;

    void list(const char* json) { phone_->plist(listPath, nlohmann::json::parse(json)); }
    static Page page() {
        return VNTSBToolBarController::shared().page<VNTDailyToolBarViewController>();
    }
    static Object part(const char* name) {
        return page().send<"valueForKey:", Object>(NSString::from(name));
    }
    static UIView panel(const char* name) { return as<UIViewController>(part(name)).view(); }
    static UIView row() { return page().toggleContainerView(); }
    static Toggle toggle(const char* name) { return as<Toggle>(part(name)); }

    static constexpr std::pair<const char*, const char*> keys[]{
        {"Appearance", "appearanceVC"},
        {"OrientationLock", "orientationVC"},
        {"Mute", "muteVC"},
        {"LowPower", "lowPowerVC"},
        {"DND", "dndVC"},
        {"flashlight", "flashlightVC"},
        {"display", "brightnessVC"},
        {"volume", "volumeVC"}};

    static std::string keyOf(Object toggle) {
        for (auto [key, name] : keys) {
            if (part(name) == toggle) return key;
        }
        return "-";
    }
    // The keys in the row's slots, "-" for an empty one.
    static std::vector<std::string> slots() {
        std::vector<std::string> found;
        for (unsigned long i = 0; i < page().toggleControllers().count(); ++i) {
            found.push_back(keyOf(page().toggleControllers().at(i)));
        }
        return found;
    }
    static std::string keyOfView(UIView view) {
        for (auto [key, name] : keys) {
            if (toggle(name).view() == view) return key;
        }
        return "?";
    }
    static std::vector<std::string> shown() {
        std::vector<std::string> found;
        for (unsigned long i = 0; i < row().subviews().count(); ++i) {
            found.push_back(keyOfView(row().subviews().at<UIView>(i)));
        }
        return found;
    }
    static void expectEvenGaps(double gap) {
        NSArray views = row().subviews();
        for (unsigned long i = 0; i < views.count(); ++i) {
            CGRect frame = views.at<UIView>(i).frame();
            EXPECT_NEAR(frame.origin.x, gap + static_cast<double>(i) * (gap + 50), 1e-9) << i;
            EXPECT_EQ(frame.origin.y, 25);
            EXPECT_EQ(frame.size, (CGSize{50, 50}));
        }
    }
    using Keys = std::vector<std::string>;
    static Keys emptySlots() { return Keys(6, "-"); }
};

TEST_F(Everyday, ShowsFourTogglesWithoutAList) {
    boot();
    EXPECT_EQ(slots(), (Keys{"display", "OrientationLock", "LowPower", "flashlight"}));
    EXPECT_EQ(shown(), slots());
    const double x[]{35, 120, 205, 290};
    for (unsigned long i = 0; i < 4; ++i) {
        EXPECT_EQ(row().subviews().at<UIView>(i).frame(), rect(x[i], 25, 50, 50));
    }
}

TEST_F(Everyday, MakesEveryToggleWhetherListedOrNot) {
    list("[[]]");
    boot();
    struct {
        const char* name;
        const char* className;
        const char *off, *on;
        bool hasPackage;
    } const rows[]{
        {"appearanceVC", "VNTAppearanceToggleViewController", "dark", "light", true},
        {"orientationVC", "VNTOrientationLockToggleViewController", "unlocked", "locked", true},
        {"muteVC", "VNTMuteToggleViewController", "ringer", "silent", true},
        {"lowPowerVC", "VNTLowPowerToggleViewController", "*", "enabled", true},
        {"dndVC", "VNTDNDToggleViewController", "off", "on", true},
        {"flashlightVC", "VNTFlashlightToggleViewController", "off", "on", false},
        {"brightnessVC", "VNTSwitchModuleToggleViewController", "min", "full", false},
        {"volumeVC", "VNTSwitchModuleToggleViewController", "min", "full", false}};
    for (const auto& expected : rows) {
        Toggle made = toggle(expected.name);
        EXPECT_STREQ(class_getName(object_getClass(made.get())), expected.className);
        EXPECT_EQ(text(made.stateString().at<NSString>(0)), expected.off);
        EXPECT_EQ(text(made.stateString().at<NSString>(1)), expected.on);
        VNTDailyToggleButton button = made.toggleButton();
        if (expected.hasPackage) {
            EXPECT_TRUE((button.packageView().send<"package", Object>())) << expected.name;
        } else {
            EXPECT_TRUE((button.onImageView().send<"image", Object>())) << expected.name;
            EXPECT_TRUE((button.offImageView().send<"image", Object>())) << expected.name;
        }
    }
    EXPECT_EQ(glyphOf(toggle("lowPowerVC")), "*");
}

TEST_F(Everyday, TintsItsImageTogglesBlueAndWhite) {
    boot();
    for (const char* name : {"brightnessVC", "volumeVC", "flashlightVC"}) {
        VNTDailyToggleButton button = toggle(name).toggleButton();
        EXPECT_TRUE(equal(button.onImageView().send<"tintColor", Object>(), UIColor::systemBlue()));
        EXPECT_TRUE(equal(button.offImageView().send<"tintColor", Object>(), UIColor::white()));
    }
}

struct ListCase {
    const char* name;
    const char* json;
    std::vector<std::string> slots;
    double gap;
};

class EverydayList : public Everyday, public testing::WithParamInterface<ListCase> {};

TEST_P(EverydayList, DecidesWhatTheRowShows) {
    list(GetParam().json);
    boot();
    EXPECT_EQ(slots(), GetParam().slots);
    Keys filled;
    for (const std::string& key : GetParam().slots) {
        if (key != "-") filled.push_back(key);
    }
    EXPECT_EQ(shown(), filled);
    expectEvenGaps(GetParam().gap);
    EXPECT_FALSE(phone_->crashed());
}

// All eight on one row: (375 - 400) / 9; seven: (375 - 350) / 8.
INSTANTIATE_TEST_SUITE_P(
    Lists, EverydayList,
    testing::Values(
        ListCase{"One", R"([["Mute"]])", {"Mute", "-", "-", "-", "-", "-"}, 162.5},
        ListCase{"Six",
                 R"([["DND","volume","Appearance","flashlight","Mute","LowPower"]])",
                 {"DND", "volume", "Appearance", "flashlight", "Mute", "LowPower"},
                 75.0 / 7},
        ListCase{"AnUnknownKeyBetween",
                 R"([["volume","unheard-of","Mute"]])",
                 {"volume", "-", "Mute", "-", "-", "-"},
                 275.0 / 3},
        ListCase{"AKeyTwice",
                 R"([["Mute","DND","Mute"]])",
                 {"Mute", "DND", "-", "-", "-", "-"},
                 275.0 / 3},
        ListCase{"KeysInAnotherCase",
                 R"([["mute","Display","FLASHLIGHT"]])",
                 {"-", "-", "-", "-", "-", "-"},
                 0},
        ListCase{"OtherElementsIgnored",
                 R"([["DND"],["Mute"],"LowPower"])",
                 {"DND", "-", "-", "-", "-", "-"},
                 162.5},
        ListCase{"NumbersBetweenTheKeys",
                 R"([[1,"DND",true,{"Mute":1}]])",
                 {"-", "DND", "-", "-", "-", "-"},
                 162.5},
        // The keys at 6 and 7 come at the end when it is their turn, so the row grows by both.
        ListCase{"AllEightInOrder",
                 R"([["Appearance","OrientationLock","Mute","LowPower","DND","flashlight",
                      "display","volume"]])",
                 {"Appearance", "OrientationLock", "Mute", "LowPower", "DND", "flashlight",
                  "display", "volume"},
                 -25.0 / 9},
        // display has its turn before volume has made room for it.
        ListCase{
            "AllEightTheLastTwoTurned",
            R"([["Appearance","OrientationLock","Mute","LowPower","DND","flashlight",
                      "volume","display"]])",
            {"Appearance", "OrientationLock", "Mute", "LowPower", "DND", "flashlight", "volume"},
            25.0 / 8},
        // From behind: Appearance, at 7, and OrientationLock, at 6, come first: only the second fits.
        ListCase{"AllEightFromBehind",
                 R"([["volume","display","flashlight","DND","LowPower","Mute",
                      "OrientationLock","Appearance"]])",
                 {"volume", "display", "flashlight", "DND", "LowPower", "Mute", "OrientationLock"},
                 25.0 / 8},
        ListCase{"AKeyFarOutside",
                 R"([["a","b","c","d","e","f","g","h","i","Mute"]])",
                 {"-", "-", "-", "-", "-", "-"},
                 0},
        ListCase{"NoKeys", "[[]]", {"-", "-", "-", "-", "-", "-"}, 0},
        ListCase{"NoElement", "[]", {"-", "-", "-", "-", "-", "-"}, 0},
        ListCase{"AStringForTheList", R"(["Mute"])", {"-", "-", "-", "-", "-", "-"}, 0},
        ListCase{"ANumberForTheList", "[7]", {"-", "-", "-", "-", "-", "-"}, 0},
        ListCase{"ADictionaryForTheList", R"([{"0":"Mute"}])", {"-", "-", "-", "-", "-", "-"}, 0},
        ListCase{"ADictionaryForTheRoot", R"({"0":["Mute"]})", {"-", "-", "-", "-", "-", "-"}, 0}),
    [](const auto& listed) { return std::string(listed.param.name); });

TEST_F(Everyday, ShowsAnEmptyRowForAFileThatIsNoPropertyList) {
    for (const char* bytes : {"", "bplist00\xff\xff", "((((((", "\x01\x02\x03"}) {
        phone_->file(listPath, bytes);
        if (bytes == std::string()) boot();
        page().refreshAllToggles();
        EXPECT_EQ(slots(), emptySlots());
        EXPECT_TRUE(shown().empty());
    }
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(Everyday, BuildsItsRowAnewWhenThePaneAsks) {
    boot();
    list(R"([["volume","DND"]])");
    EXPECT_EQ(shown(), (Keys{"display", "OrientationLock", "LowPower", "flashlight"}));
    phone_->postDarwin(refreshNotification);
    phone_->wait(0.1);
    EXPECT_EQ(shown(), (Keys{"volume", "DND"}));
    expectEvenGaps(275.0 / 3);
    for (VNTToolBarController toolbar :
         {VNTToolBarController::shared(), VNTToolBarController(VNTSBToolBarController::shared())}) {
        EXPECT_EQ(
            toolbar.page<VNTDailyToolBarViewController>().toggleContainerView().subviews().count(),
            2u);
    }
    phone_->remove(listPath);
    phone_->postDarwin(refreshNotification);
    phone_->wait(0.1);
    EXPECT_EQ(shown(), (Keys{"display", "OrientationLock", "LowPower", "flashlight"}));
}

TEST_F(Everyday, IsAStripThatCutsOffWhatWaitsOutside) {
    boot();
    UIView view = page().view();
    EXPECT_EQ(view.bounds(), rect(0, 0, 375, 100));
    EXPECT_TRUE(view.layer().masksToBounds());
    EXPECT_EQ(view.alpha(), 0);
    EXPECT_TRUE((page().send<"_canShowWhileLocked", bool>()));
    ASSERT_EQ(view.subviews().count(), 3u);
    EXPECT_TRUE(view.subviews().at(0) == row());
    EXPECT_TRUE(view.subviews().at(1) == panel("brightnessSliderContainerVC"));
    EXPECT_TRUE(view.subviews().at(2) == panel("volumeSliderContainerVC"));
    EXPECT_EQ(row().frame(), rect(0, 0, 375, 100));
    EXPECT_EQ(panel("brightnessSliderContainerVC").frame(), rect(0, 100, 375, 100));
    EXPECT_EQ(panel("volumeSliderContainerVC").frame(), rect(0, -100, 375, 100));
    EXPECT_TRUE((part("brightnessSliderContainerVC").send<"shouldShowSwitcher", bool>()));
}

struct SlideCase {
    const char* name;
    const char* notification;
    double rowAlpha, rowY;
    const char* panel;
    double panelAlpha, panelY;
    const char* other;
    double otherY;
};

class EverydaySlide : public Everyday, public testing::WithParamInterface<SlideCase> {};

TEST_P(EverydaySlide, MovesTheRowAndItsOwnPanelOnly) {
    boot();
    openToolbar();
    const SlideCase& c = GetParam();
    // A hiding starts from where the showing leads.
    if (c.rowAlpha == 1) {
        std::string shows = c.notification;
        phone_->post(shows.replace(shows.find("hide"), 4, "show"));
        phone_->wait(0.5);
    }
    phone_->post(c.notification);
    EXPECT_EQ(row().alpha(), c.rowAlpha);
    EXPECT_EQ(row().frame(), rect(0, c.rowY, 375, 100));
    EXPECT_EQ(panel(c.panel).alpha(), c.panelAlpha);
    EXPECT_EQ(panel(c.panel).frame(), rect(0, c.panelY, 375, 100));
    EXPECT_EQ(panel(c.other).alpha(), 1);
    EXPECT_EQ(panel(c.other).frame(), rect(0, c.otherY, 375, 100));
    phone_->wait(0.25);
    EXPECT_TRUE(isAnimating(panel(c.panel)));
    EXPECT_TRUE(isAnimating(row()));
    EXPECT_FALSE(isAnimating(panel(c.other)));
    phone_->wait(0.1);
    EXPECT_FALSE(isAnimating(panel(c.panel)));
    EXPECT_EQ(page().view().bounds(), rect(0, 0, 375, 100));
}

constexpr const char* brightnessPanel = "brightnessSliderContainerVC";
constexpr const char* volumePanel = "volumeSliderContainerVC";

INSTANTIATE_TEST_SUITE_P(
    Slides, EverydaySlide,
    testing::Values(SlideCase{"ShowBrightness", "should-show-brightnessSlider", 0, -100,
                              brightnessPanel, 1, 0, volumePanel, -100},
                    SlideCase{"HideBrightness", "should-hide-brightnessSlider", 1, 0,
                              brightnessPanel, 0, 100, volumePanel, -100},
                    SlideCase{"ShowVolume", "should-show-volumeSlider", 0, 100, volumePanel, 1, 0,
                              brightnessPanel, 100},
                    SlideCase{"HideVolume", "should-hide-volumeSlider", 1, 0, volumePanel, 0, -100,
                              brightnessPanel, 100}),
    [](const auto& listed) { return std::string(listed.param.name); });

TEST_F(Everyday, ItsSwitchesAskForTheirPanelsAtEveryTap) {
    boot();
    for (int taps = 1; taps <= 2; ++taps) {
        tap(toggle("brightnessVC"));
        tap(toggle("volumeVC"));
        EXPECT_EQ(posted("should-show-brightnessSlider"), taps);
        EXPECT_EQ(posted("should-show-volumeSlider"), taps);
    }
    EXPECT_EQ(posted("should-hide-brightnessSlider"), 0);
    EXPECT_EQ(posted("should-hide-volumeSlider"), 0);
    auto brightness = as<VNTSwitchModuleToggleViewController>(toggle("brightnessVC"));
    EXPECT_EQ(text(brightness.offMessage()), "should-hide-brightnessSlider");
    auto volume = as<VNTSwitchModuleToggleViewController>(toggle("volumeVC"));
    EXPECT_EQ(text(volume.offMessage()), "should-hide-volumeSlider");
}

TEST_F(Everyday, APanelThatIsShownStaysThroughARefreshOfTheRow) {
    boot();
    tap(toggle("brightnessVC"));
    phone_->wait(0.5);
    list(R"([["DND"]])");
    phone_->postDarwin(refreshNotification);
    phone_->wait(0.1);
    EXPECT_EQ(row().alpha(), 0);
    EXPECT_EQ(panel(brightnessPanel).frame(), rect(0, 0, 375, 100));
    EXPECT_EQ(shown(), Keys{"DND"});
}

TEST_F(Everyday, ItsLayoutTakesTheWidthOfTheScreen) {
    phone_->device("iPhone12,5");
    boot();
    page().send<"viewDidLayoutSubviews">();
    EXPECT_EQ(page().view().bounds(), rect(0, 0, 414, 100));
    EXPECT_EQ(panel(brightnessPanel).bounds(), rect(0, 0, 414, 100));
    EXPECT_EQ(panel(volumePanel).bounds(), rect(0, 0, 414, 100));
    expectEvenGaps((414.0 - 200) / 5);
}

// Every setting as the phone says when the toolbar comes up, not while it is open.
TEST_F(Everyday, OpeningTheToolbarRefreshesItsToggles) {
    boot();
    phone_->toggle("lowpower", true);
    phone_->toggle("ringermute", true);
    phone_->appearance(true);
    expectShown(toggle("lowPowerVC"), false);
    openToolbar();
    for (const char* name : {"lowPowerVC", "muteVC", "appearanceVC"}) {
        expectShown(toggle(name), true);
    }
    phone_->toggle("lowpower", false);
    phone_->toggle("donotdisturb", true);
    phone_->appearance(false);
    phone_->wait(1);
    expectShown(toggle("lowPowerVC"), true);
    expectShown(toggle("appearanceVC"), true);
    expectShown(toggle("dndVC"), false);
}

}  // namespace
}  // namespace vantori::tests
