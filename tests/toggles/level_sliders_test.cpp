// The sliders of volume and brightness: what they read, what they write, and what their glyphs show.
#include "tests/order.hpp"
#include "tests/toggles/slider_phone.hpp"

namespace vantori::tests {
namespace {

constexpr const char* plainPackage =
    "/System/Library/PrivateFrameworks/MediaControls.framework/Volume.ca";
constexpr const char* earbudsPackage =
    "/System/Library/PrivateFrameworks/MediaControls.framework/VolumeAirPods.ca";

class Levels : public SliderPhone {
  protected:
    static Strong<VNTVolumeSlider> volume() { return slider<VNTVolumeSlider>(bar); }
    static Strong<VNTBrightnessSlider> brightness() { return slider<VNTBrightnessSlider>(bar); }
    std::string packageLoaded() const {
        auto call = phone_->lastCall("CAPackage", "packageWithContentsOfURL:type:options:error:");
        if (!call) return "nothing";
        Object url(*simulator::scenario::asObject(call->front()));
        return text(url.send<"path", NSString>());
    }
    int packagesLoaded() const {
        return called("CAPackage", "packageWithContentsOfURL:type:options:error:");
    }
    static std::string route(VNTVolumeSlider slider) { return text(slider.currentName()); }

    static constexpr CGRect bar = platform::rect(0, 0, 120, 50);
};

// The bands of a value. The borders are the doubles 0.3 and 0.6; as floats both numbers are a little
// larger, so that 0.3 is within the middle band and 0.6 above it.
struct Band {
    float value;
    const char* volume;
    const char* brightness;
};

class Glyph : public Levels, public testing::WithParamInterface<Band> {};

TEST_P(Glyph, OfTheVolume) {
    boot();
    auto slider = volume();
    slider.adjustValue(GetParam().value);
    EXPECT_EQ(text(glyphState(slider)), GetParam().volume);
    EXPECT_EQ(volumeGiven(), static_cast<double>(GetParam().value));
    phone_->ringer(0.45);
    phone_->ringer(static_cast<double>(GetParam().value));
    EXPECT_EQ(text(glyphState(slider)), GetParam().volume);
    EXPECT_NEAR(shown(slider), GetParam().value, 1e-7);
}

TEST_P(Glyph, OfTheBrightness) {
    boot();
    auto slider = brightness();
    slider.adjustValue(GetParam().value);
    EXPECT_EQ(text(glyphState(slider)), GetParam().brightness);
    EXPECT_EQ(brightnessGiven(), static_cast<double>(GetParam().value));
    phone_->brightness(0.45);
    phone_->brightness(static_cast<double>(GetParam().value));
    EXPECT_EQ(text(glyphState(slider)), GetParam().brightness);
    EXPECT_NEAR(shown(slider), GetParam().value, 1e-7);
}

INSTANTIATE_TEST_SUITE_P(Bands, Glyph,
                         testing::Values(Band{0, "mute", "min"}, Band{0.01f, "min", "min"},
                                         Band{0.29f, "min", "min"}, Band{0.3f, "half", "mid"},
                                         Band{0.5f, "half", "mid"}, Band{0.59f, "half", "mid"},
                                         Band{0.6f, "full", "full"}, Band{0.61f, "full", "full"},
                                         Band{1, "full", "full"}));

// The glyph is the package's silhouette in gray.
void expectGlyph(VNTSlider slider) {
    UIView container = slider.glyphContainerView(), package = slider.packageView();
    EXPECT_EQ(container.frame(), platform::rect(15, 10, 30, 30));
    EXPECT_NEAR(container.alpha(), 0.6, 1e-7);
    EXPECT_TRUE((container.send<"backgroundColor", UIColor>().send<"isEqual:", bool>(
        UIColor::systemGray())));
    EXPECT_EQ(container.superview(), slider);
    EXPECT_EQ(slider.subviews().last(), container);
    EXPECT_TRUE(package.isKindOfClass(objc_getClass("CCUICAPackageView")));
    EXPECT_EQ((container.layer().send<"mask", CALayer>()), package.layer());
    EXPECT_FALSE(package.superview());
    EXPECT_EQ(package.transform(), (CGAffineTransform{0.85, 0, 0, 0.85, 0, 0}));
    EXPECT_EQ(package.bounds().size, (CGSize{30, 30}));
    EXPECT_EQ(package.center(), (CGPoint{15, 15}));
    // 30 times 0.85 is 25.5, about the middle.
    EXPECT_NEAR(package.frame().origin.x, 2.25, 1e-9);
    EXPECT_NEAR(package.frame().size.height, 25.5, 1e-9);
}

TEST_F(Levels, TheVolumeGlyphIsAMask) {
    boot();
    auto slider = volume();
    expectGlyph(slider);
    EXPECT_EQ(packageLoaded(), plainPackage);
    EXPECT_EQ(text(glyphState(slider)), "nil");
}

TEST_F(Levels, TheBrightnessGlyphIsAMask) {
    boot();
    auto slider = brightness();
    expectGlyph(slider);
    EXPECT_EQ(packageLoaded(),
              "/System/Library/ControlCenter/Bundles/DisplayModule.bundle/Brightness.ca");
}

TEST_F(Levels, WithNothingPlayingTheVolumeIsTheRingers) {
    boot();
    auto slider = volume();
    EXPECT_EQ(text(slider.currentVolumeCategory()), "Ringtone");
    phone_->volume(0.9);
    EXPECT_EQ(shown(slider), 0.5);
    phone_->ringer(0.25);
    EXPECT_EQ(shown(slider), 0.25);
    slider.adjustValue(0.75f);
    playFrom(77);
    slider.refreshValue();
    EXPECT_NEAR(shown(slider), 0.9, 1e-7);
}

TEST_F(Levels, WhileAnApplicationPlaysTheVolumeIsItsOwn) {
    boot();
    auto slider = volume();
    playFrom(77);
    EXPECT_EQ(text(slider.currentVolumeCategory()), "Audio/Video");
    phone_->volume(0.25);
    EXPECT_EQ(shown(slider), 0.25);
    phone_->ringer(1);
    EXPECT_EQ(shown(slider), 0.25);
    slider.adjustValue(0.75f);
    playFrom(0);
    slider.refreshValue();
    EXPECT_EQ(shown(slider), 1);
}

TEST_F(Levels, TheFirstRouteIsNone) {
    boot();
    auto slider = volume();
    EXPECT_EQ(route(slider), "nil");
    EXPECT_TRUE((slider.send<"systemController", Object>()));
    EXPECT_FALSE((slider.send<"packageViews", Object>()));
    EXPECT_EQ(packagesLoaded(), 1);
    slider.refreshValue();
    EXPECT_EQ(route(slider), "Speaker");
    EXPECT_EQ(packagesLoaded(), 2);
    EXPECT_EQ(packageLoaded(), plainPackage);
}

TEST_F(Levels, TheGlyphFollowsTheRoute) {
    boot();
    auto slider = volume();
    slider.refreshValue();
    phone_->clear();
    slider.refreshValue();
    EXPECT_EQ(packagesLoaded(), 0);
    phone_->route("HeadphonesBT");
    EXPECT_EQ(packagesLoaded(), 0);  // a route alone is no reason to look
    slider.refreshValue();
    EXPECT_EQ(packageLoaded(), earbudsPackage);
    EXPECT_EQ(route(slider), "HeadphonesBT");
    EXPECT_EQ(text(glyphState(slider)), "half");
    slider.refreshValue();
    EXPECT_EQ(packagesLoaded(), 1);
    phone_->route("Speaker");
    slider.refreshValue();
    EXPECT_EQ(packageLoaded(), plainPackage);
    EXPECT_EQ(packagesLoaded(), 2);
}

TEST_F(Levels, WithoutARouteThereIsNoPackageToLoad) {
    phone_->missingClass("AVSystemController");
    boot();
    auto slider = volume();
    const int before = packagesLoaded();
    slider.refreshValue();
    slider.refreshValue();
    EXPECT_EQ(packagesLoaded(), before);
}

TEST_F(Levels, ADragShowsItsGlyphBeforeItAsksForTheRoute) {
    boot();
    auto slider = volume();
    slider.adjustValue(1);
    std::string shownThen;
    Spy<"setCurrentName:", id>::on("VNTVolumeSlider",
                                   [&](Object, id) { shownThen = text(glyphState(slider)); });
    slider.adjustValue(0);
    EXPECT_EQ(shownThen, "mute");
}

// A drag remembers the route and leaves the glyph, so that the next refresh finds nothing new.
TEST_F(Levels, ADragTakesTheRouteWithoutItsGlyph) {
    boot();
    auto slider = volume();
    slider.refreshValue();
    auto package = [&] { return slider.packageView().send<"package", Object>(); };
    const Object before = package();
    phone_->route("HeadphonesBT");
    slider.adjustValue(0.4f);
    EXPECT_EQ(route(slider), "HeadphonesBT");
    slider.refreshValue();
    EXPECT_TRUE(before);
    EXPECT_EQ(package(), before);
}

TEST_F(Levels, TheVolumeMovesInFifteenHundredths) {
    boot();
    openToolbar();
    auto slider = volumeSlider();
    slider.adjustSlider(1);
    EXPECT_EQ(fill(slider), 0);
    EXPECT_EQ(called("AVSystemController", "setActiveCategoryVolumeTo:"), 0);
    auto onScreen = [&] {
        return Object(phone_->presentation(slider.frontView().get()))
            .send<"frame", CGRect>()
            .origin.x;
    };
    EXPECT_EQ(onScreen(), -60);
    phone_->wait(0.075);
    EXPECT_NEAR(onScreen(), -30, 8);  // half-way, to a frame
    phone_->wait(0.08);
    EXPECT_EQ(onScreen(), 0);
}

TEST_F(Levels, TheBrightnessMovesAtOnce) {
    boot();
    openToolbar();
    auto slider = brightnessSlider();
    phone_->brightness(1);
    Object front(phone_->presentation(slider.frontView().get()));
    EXPECT_EQ((front.send<"frame", CGRect>().origin.x), 0);
}

TEST_F(Levels, ADragOfTheBrightnessShowsNoHUD) {
    boot();
    auto slider = brightness();
    slider.adjustValue(0.25f);
    auto call = phone_->lastCall("SBBrightnessController", "_setBrightnessLevel:showHUD:");
    ASSERT_TRUE(call);
    EXPECT_FALSE(simulator::scenario::isTrue((*call)[1]));
    EXPECT_EQ((UIScreen::mainScreen().send<"brightness", double>()), 0.25);
}

TEST_F(Levels, TheDisplayModuleTellsTheBrightness) {
    boot();
    auto slider = brightness();
    auto module = slider.send<"ccController", Object>();
    EXPECT_EQ((module.send<"delegate", Object>()), slider);
    slider.send<"displayModuleViewController:brightnessDidChange:">(module, 0.75f);
    EXPECT_EQ(shown(slider), 0.75);
    EXPECT_EQ(text(glyphState(slider)), "full");
    EXPECT_EQ(brightnessGiven(), -1);
}

TEST_F(Levels, TheDisplayModuleIsMadeAgainWhenItIsGone) {
    boot();
    auto slider = brightness();
    auto lose = [&] { slider.send<"setCcController:">(Object()); };
    auto module = [&] { return slider.send<"ccController", Object>(); };
    lose();
    slider.refreshValue();
    EXPECT_EQ((module().send<"delegate", Object>()), slider);
    lose();
    slider.adjustValue(0.5f);
    EXPECT_EQ((module().send<"delegate", Object>()), slider);
    EXPECT_TRUE((slider.send<"brightnessController", Object>()));
}

// What makes a slider look again, and what does not.

TEST_F(Levels, WhatRefreshesTheVolume) {
    boot();
    auto slider = volume();
    auto reads = [&] { return called("AVSystemController", "getActiveCategoryVolume:andName:"); };
    // The sliders of the toolbars hear it too: each of them reads once, this one is one more.
    phone_->post("should-refresh-value");
    const int all = reads();
    EXPECT_GE(all, 3);
    phone_->ringer(0.5);
    EXPECT_EQ(reads(), 2 * all);
    phone_->volume(0.5);
    EXPECT_EQ(reads(), 3 * all);
    phone_->brightness(0.5);  // one more occasion, on purpose
    EXPECT_EQ(reads(), 4 * all);
    phone_->post("com.ferolin.volume.should-refresh-value");
    phone_->post("should-refresh-state");
    phone_->route("HeadphonesBT");
    EXPECT_EQ(reads(), 4 * all);
}

TEST_F(Levels, WhatRefreshesTheBrightness) {
    boot();
    auto slider = brightness();
    auto reads = [&] { return called("CCUIDisplayModuleViewController", "currentBrightness"); };
    phone_->post("should-refresh-value");
    const int all = reads();
    EXPECT_GE(all, 3);
    phone_->ringer(0.5);
    phone_->volume(0.5);
    phone_->post("should-refresh-state");
    EXPECT_EQ(reads(), all);
    phone_->brightness(0.75);
    EXPECT_EQ(reads(), 2 * all);
    EXPECT_EQ(shown(slider), 0.75);
}

TEST_F(Levels, ChangesBeforeTheToolbarOpensAreShownWhenItDoes) {
    boot();
    // Both have been told of already by the system's notifications; the route has not.
    phone_->route("HeadphonesBT");
    EXPECT_EQ(route(volumeSlider()), "nil");
    openToolbar();
    EXPECT_EQ(route(volumeSlider()), "HeadphonesBT");
    EXPECT_EQ(shown(volumeSlider()), 0.5);
    EXPECT_EQ(shown(brightnessSlider()), 0.5);
}

TEST_F(Levels, UntilThenTheSlidersAreAsTheyWereMade) {
    boot();
    EXPECT_EQ(shown(volumeSlider()), 1);
    EXPECT_EQ(shown(brightnessSlider()), 1);
}

TEST_F(Levels, AnotherPlayerRefreshesThem) {
    boot();
    playFrom(77);
    EXPECT_EQ(shown(volumeSlider()), 0.5);
    EXPECT_EQ(shown(brightnessSlider()), 0.5);
}

TEST_F(Levels, ChangesWhileTheToolbarIsOpenAreShownAtOnce) {
    boot();
    openToolbar();
    phone_->ringer(0.1);
    phone_->brightness(0.9);
    EXPECT_NEAR(shown(volumeSlider()), 0.1, 1e-7);
    EXPECT_NEAR(shown(brightnessSlider()), 0.9, 1e-7);
    EXPECT_EQ(text(glyphState(volumeSlider())), "min");
    EXPECT_EQ(text(glyphState(brightnessSlider())), "full");
}

TEST_F(Levels, TheMediaControlsPassItOn) {
    boot();
    phone_->volume(0.7);
    EXPECT_EQ(posted("com.ferolin.volume.should-refresh-value"), 1);
    EXPECT_EQ(called("MediaControlsVolumeController", "volumeController:volumeValueDidChange:"), 1);
    auto call =
        phone_->lastCall("MediaControlsVolumeController", "volumeController:volumeValueDidChange:");
    EXPECT_NEAR(static_cast<double>(simulator::scenario::asNumber((*call)[1])->value), 0.7, 1e-7);
    phone_->ringer(0.7);
    EXPECT_EQ(posted("com.ferolin.volume.should-refresh-value"), 1);
}

// The system's implementation first: who hears the post finds the change made.
TEST_F(Levels, TheMediaControlsPassItOnAfterwards) {
    boot();
    int systemBefore = -1;
    listenTo({"com.ferolin.volume.should-refresh-value"});
    Order::look() = [&] {
        systemBefore =
            called("MediaControlsVolumeController", "volumeController:volumeValueDidChange:");
    };
    phone_->volume(0.7);
    EXPECT_EQ(systemBefore, 1);
    Order::look() = {};
}

// The phone's own ways.

TEST_F(Levels, ALevelIsFromNothingToOne) {
    boot();
    EXPECT_THROW(phone_->volume(1.01), simulator::PhoneError);
    EXPECT_THROW(phone_->ringer(-0.01), simulator::PhoneError);
    EXPECT_THROW(phone_->brightness(2), simulator::PhoneError);
    EXPECT_THROW(phone_->route("Gramophone"), simulator::PhoneError);
    EXPECT_EQ(posted("AVSystemController_SystemVolumeDidChangeNotification"), 0);
    expectUnhurt();
}

TEST_F(Levels, TheKeysChangeTheVolumeInUseBySixteenths) {
    boot();
    openToolbar();
    phone_->volumeKey(true);
    EXPECT_EQ(shown(volumeSlider()), 0.5625);
    EXPECT_EQ(posted("AVSystemController_SystemVolumeDidChangeNotification"), 1);
    playFrom(77);
    phone_->volumeKey(false);
    EXPECT_EQ(shown(volumeSlider()), 0.4375);
    for (int i = 0; i < 10; ++i) phone_->volumeKey(false);
    EXPECT_EQ(shown(volumeSlider()), 0);
    EXPECT_EQ(text(glyphState(volumeSlider())), "mute");
}

TEST_F(Levels, TheVolumeSliderOfTheToolbarUnderAFinger) {
    boot();
    playFrom(77);
    openToolbar();
    touch(onVolume());
    phone_->touchMove(onVolume().x - 23, onVolume().y, 0.2);
    EXPECT_NEAR(volumeGiven(), 40.0 / 120, 1e-6);  // 60 less the 20 that 23 are when it is grown
    EXPECT_NEAR(shown(volumeSlider()), 40.0 / 120, 1e-6);
    phone_->touchMove(0, onVolume().y, 0.2);
    EXPECT_EQ(volumeGiven(), 0.0);
    EXPECT_EQ(text(glyphState(volumeSlider())), "mute");
    phone_->touchMove(375, onVolume().y, 0.2);
    EXPECT_EQ(volumeGiven(), 1.0);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(shown(volumeSlider()), 1);
    expectUnhurt();
}

// A phone that lacks a class: the slider that needs it stays at nothing, and all else goes on.

struct Lack {
    const char* missing;
    double volume, brightness;  // what the sliders show of 0.5 and 0.5
};

class Lacking : public Levels, public testing::WithParamInterface<Lack> {};

TEST_P(Lacking, OneClassAtATime) {
    phone_->missingClass(GetParam().missing);
    boot();
    openToolbar();
    EXPECT_EQ(shown(volumeSlider()), GetParam().volume);
    EXPECT_EQ(shown(brightnessSlider()), GetParam().brightness);
    for (CGPoint place : {onBrightness(), onVolume()}) {
        touch(place);
        phone_->touchMove(place.x - 30, place.y, 0.2);
        phone_->touchMove(place.x + 300, place.y, 0.2);
        phone_->touchUp();
        phone_->wait(0.5);
    }
    phone_->volume(0.2);
    phone_->ringer(0.2);
    phone_->brightness(0.2);
    phone_->route("HeadphonesBT");
    phone_->post("should-refresh-value");
    phone_->post("should-refresh-state");
    phone_->wait(0.5);
    expectUnhurt();
}

INSTANTIATE_TEST_SUITE_P(Classes, Lacking,
                         testing::Values(Lack{"AVSystemController", 0, 0.5},
                                         Lack{"SBBrightnessController", 0.5, 0.5},
                                         Lack{"CCUIDisplayModuleViewController", 0.5, 0},
                                         Lack{"CCUICAPackageView", 0.5, 0.5},
                                         Lack{"CAPackage", 0.5, 0.5},
                                         Lack{"MediaControlsVolumeController", 0.5, 0.5},
                                         Lack{"UIImpactFeedbackGenerator", 0.5, 0.5}));

TEST_F(Levels, WithoutMaterialsThereIsNothingToDrag) {
    phone_->missingClass("MTMaterialView");
    boot();
    openToolbar();
    EXPECT_FALSE(brightnessSlider().frontView());
    EXPECT_FALSE(brightnessSlider().containerView());
    touch(onBrightness());
    phone_->touchMove(onBrightness().x - 30, onBrightness().y, 0.2);
    phone_->touchUp();
    EXPECT_EQ(brightnessGiven(), -1);
    EXPECT_EQ(posted("should-unlock-ScrollView"), 1);
    expectUnhurt();
}

}  // namespace
}  // namespace vantori::tests
