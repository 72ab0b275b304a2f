// The two panels: three toggles of 50 points and a slider of 120 in a strip, evenly spaced.
#include "tests/toggles/slider_phone.hpp"
#include "toggles/catalogue.hpp"

namespace vantori::tests {
namespace {

class Panels : public SliderPhone {
  protected:
    static UIViewController brightnessPanel() {
        return toolbar().page<VNTBrightnessSliderContainerViewController>();
    }
    static UIViewController volumePanel() {
        return toolbar().page<VNTVolumeSliderContainerViewController>();
    }
    template <FixedString property>
    static VNTDailyToggleViewController toggle(UIViewController panel) {
        return panel.send<property, VNTDailyToggleViewController>();
    }
    template <FixedString property>
    static CGRect place(UIViewController panel) {
        return toggle<property>(panel).view().frame();
    }
    static void expectRow(UIViewController panel, std::initializer_list<UIView> views) {
        const NSArray parts = panel.view().subviews();
        ASSERT_EQ(parts.count(), views.size());
        unsigned long i = 0;
        for (UIView view : views) EXPECT_EQ(parts.at<UIView>(i++), view) << i;
    }
};

// The gap is (width - 270) / 5, so the toggles stand at one, two and three gaps and 0, 50 and 100
// points, and the slider at four gaps and 150.
struct Width {
    double screen, first, second, third, slider;
};

class Wide : public Panels, public testing::WithParamInterface<Width> {};

TEST_P(Wide, EvenlySpaced) {
    const auto [width, first, second, third, last] = GetParam();
    phone_->screen(width, 800, 2);
    boot();
    auto square = [](double x) { return rect(x, 25, 50, 50); };
    EXPECT_EQ(place<"lowpowerVC">(brightnessPanel()), square(first));
    EXPECT_EQ(place<"flashLightVC">(brightnessPanel()), square(second));
    EXPECT_EQ(place<"nightshiftVC">(brightnessPanel()), square(second));
    EXPECT_EQ(place<"sliderAppearanceVC">(brightnessPanel()), square(third));
    EXPECT_EQ(brightnessSlider().frame(), rect(last, 25, 120, 50));
    EXPECT_EQ(place<"orientationVC">(volumePanel()), square(first));
    EXPECT_EQ(place<"muteVC">(volumePanel()), square(second));
    EXPECT_EQ(place<"dndVC">(volumePanel()), square(third));
    EXPECT_EQ(volumeSlider().frame(), rect(last, 25, 120, 50));
}

INSTANTIATE_TEST_SUITE_P(Screens, Wide,
                         testing::Values(Width{375, 21, 92, 163, 234}, Width{320, 10, 70, 130, 190},
                                         Width{420, 30, 110, 190, 270}));

TEST_F(Panels, TheBrightnessRowFromTheBack) {
    boot();
    auto panel = brightnessPanel();
    expectRow(panel,
              {toggle<"nightshiftVC">(panel).view(), toggle<"sliderAppearanceVC">(panel).view(),
               toggle<"lowpowerVC">(panel).view(), toggle<"flashLightVC">(panel).view(),
               brightnessSlider()});
    EXPECT_EQ(toggle<"nightshiftVC">(panel).view().alpha(), 0);
    EXPECT_EQ(toggle<"sliderAppearanceVC">(panel).view().alpha(), 1);
    EXPECT_FALSE((toggle<"switcherVC">(panel)));
    EXPECT_FALSE((toggle<"truetoneVC">(panel)));
}

TEST_F(Panels, BeforeDarkModeNightShiftTakesThePlace) {
    phone_->system("12.4");
    boot();
    auto panel = brightnessPanel();
    EXPECT_EQ(place<"nightshiftVC">(panel), rect(163, 25, 50, 50));
    EXPECT_EQ(toggle<"nightshiftVC">(panel).view().alpha(), 1);
    EXPECT_EQ(toggle<"sliderAppearanceVC">(panel).view().alpha(), 0);
    EXPECT_EQ(place<"sliderAppearanceVC">(panel), rect(163, 25, 50, 50));
    EXPECT_EQ(place<"flashLightVC">(panel), rect(92, 25, 50, 50));
}

TEST_F(Panels, TheVolumeRow) {
    boot();
    auto panel = volumePanel();
    expectRow(panel, {toggle<"orientationVC">(panel).view(), toggle<"muteVC">(panel).view(),
                      toggle<"dndVC">(panel).view(), volumeSlider()});
}

void expectNames(VNTDailyToggleViewController toggle, const char* className, const char* on,
                 const char* off) {
    ASSERT_TRUE(toggle);
    EXPECT_STREQ(class_getName(object_getClass(toggle.get())), className);
    const NSArray names = toggle.stateString();
    EXPECT_STREQ(names.at<NSString>(0).utf8(), off);
    EXPECT_STREQ(names.at<NSString>(1).utf8(), on);
}

TEST_F(Panels, TheTogglesAndTheirStates) {
    boot();
    auto light = brightnessPanel(), sound = volumePanel();
    expectNames(toggle<"nightshiftVC">(light), "VNTNightshiftToggleViewController", "on", "off");
    expectNames(toggle<"sliderAppearanceVC">(light), "VNTAppearanceToggleViewController", "light",
                "dark");
    expectNames(toggle<"lowpowerVC">(light), "VNTLowPowerToggleViewController", "enabled", "*");
    expectNames(toggle<"flashLightVC">(light), "VNTFlashlightToggleViewController", "on", "off");
    expectNames(toggle<"muteVC">(sound), "VNTMuteToggleViewController", "silent", "ringer");
    expectNames(toggle<"orientationVC">(sound), "VNTOrientationLockToggleViewController", "locked",
                "unlocked");
    expectNames(toggle<"dndVC">(sound), "VNTDNDToggleViewController", "on", "off");
}

TEST_F(Panels, TheFlashlightIsWhiteOffAndBlueOn) {
    boot();
    auto button = toggle<"flashLightVC">(brightnessPanel()).toggleButton();
    auto tint = [](UIView view) { return view.send<"tintColor", UIColor>(); };
    EXPECT_TRUE((tint(button.offImageView()).send<"isEqual:", bool>(UIColor::white())));
    EXPECT_TRUE((tint(button.onImageView()).send<"isEqual:", bool>(UIColor::systemBlue())));
}

TEST_F(Panels, KeepsWhetherItShowsASwitcher) {
    boot();
    auto panel = brightnessPanel();
    EXPECT_FALSE((panel.send<"shouldShowSwitcher", bool>()));
    panel.send<"setShouldShowSwitcher:">(true);
    EXPECT_TRUE((panel.send<"shouldShowSwitcher", bool>()));
}

TEST_F(Panels, ATouchOnAToggleLeavesTheSlidersAlone) {
    boot();
    openToolbar();
    tapOn(toggle<"lowpowerVC">(brightnessPanel()).view());
    phone_->wait(1);
    EXPECT_EQ(posted("should-lock-ScrollView"), 0);
    EXPECT_TRUE((toggle<"lowpowerVC">(brightnessPanel()).isOn()));
    EXPECT_EQ(shown(brightnessSlider()), 0.5);
}

TEST_F(Panels, LiesInTheGridOfALandscapePhone) {
    boot();
    phone_->open("com.example.notes");
    phone_->rotate(simulator::Orientation::landscapeRight);
    openToolbar();
    // Two columns of 375 points in 812: 31 at each side. The sliders keep their places in them.
    EXPECT_EQ(volumePage().frame(), rect(31, 115, 375, 100));
    EXPECT_EQ(brightnessPage().frame(), rect(406, 115, 375, 100));
    EXPECT_EQ(brightnessSlider().frame(), rect(234, 25, 120, 50));
    EXPECT_EQ(shown(brightnessSlider()), 0.5);
    expectUnhurt();
}

}  // namespace
}  // namespace vantori::tests
