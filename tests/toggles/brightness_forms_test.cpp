// The brightness slider on real phones: the display gets brighter whoever has to be told.
#include "hooks/hook_report.hpp"
#include "simulator/services/brightness.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "tests/toggles/slider_phone.hpp"

namespace vantori::tests {
namespace {

using simulator::openBrightnessTransactions;

constexpr CGRect bar = platform::rect(0, 0, 120, 50);

class BrightnessOnReal : public SliderPhone {
  protected:
    void bootReal(const char* system) {
        phone_->system(system);
        phone_->real();
        boot();
    }
    static double display() { return simulator::screen().brightness; }
    // By a finger on the open toolbar, to the right by that many points. Under the finger the slider grows
    // to 1.15: 23 points are 20 of its 120.
    void slide(double points) {
        touch(onBrightness());
        phone_->wait(0.2);
        phone_->touchMove(onBrightness().x + points, onBrightness().y, 0);
    }
};

class BrightnessForm : public BrightnessOnReal, public testing::WithParamInterface<const char*> {};

TEST_P(BrightnessForm, TheDisplayGetsBrighterAndTheSliderFollows) {
    bootReal(GetParam());
    openToolbar();
    const double before = display();
    slide(23);
    phone_->touchUp();
    phone_->wait(0.5);
    EXPECT_NEAR(display(), before + 20.0 / 120, 1e-6);
    EXPECT_NEAR(shown(brightnessSlider()), display(), 1e-3);
    phone_->brightness(0.25);
    EXPECT_NEAR(shown(brightnessSlider()), 0.25, 1e-6);
    expectUnhurt();
    EXPECT_EQ(phone_->loggedCount("brightness"), 0);
}

INSTANTIATE_TEST_SUITE_P(Systems, BrightnessForm,
                         testing::Values("11.0", "11.4", "12.4", "13.3", "13.5", "13.6", "13.7",
                                         "14.0", "14.2", "14.8"));

TEST_F(BrightnessOnReal, UpToThirteenFiveTheSharedControllerIsTold) {
    bootReal("13.5");
    auto made = slider<VNTBrightnessSlider>(bar);
    made.adjustValue(0.75f);
    EXPECT_EQ(called("SBBrightnessController", "_setBrightnessLevel:showHUD:"), 1);
    EXPECT_EQ(display(), 0.75);
}

TEST_F(BrightnessOnReal, OnFourteenSpringBoardsOwnControllerIsHeldAndTold) {
    bootReal("14.2");
    auto made = slider<VNTBrightnessSlider>(bar);
    EXPECT_EQ((made.send<"brightnessController", Object>()),
              simulator::displayBrightnessController());
    made.adjustValue(0.75f);
    EXPECT_EQ(called("SBDisplayBrightnessController", "_setBrightnessLevel:showHUD:"), 1);
    EXPECT_EQ(display(), 0.75);
}

// Where SpringBoard has no such variable the display's service is told, in one transaction a slide.
TEST_F(BrightnessOnReal, OnThirteenSixTheServiceIsToldWhileTheFingerSlides) {
    bootReal("13.6");
    openToolbar();
    EXPECT_EQ(openBrightnessTransactions(), 0);
    slide(23);
    EXPECT_EQ(openBrightnessTransactions(), 1);
    EXPECT_EQ(simulator::numberBesideBrightness(), 1);
    phone_->touchMove(onBrightness().x + 40, onBrightness().y, 0);
    EXPECT_EQ(openBrightnessTransactions(), 1);
    phone_->touchUp();
    EXPECT_EQ(openBrightnessTransactions(), 0);
    EXPECT_EQ(called("SBDisplayBrightnessController", "_setBrightnessLevel:showHUD:"), 0);
    phone_->wait(0.5);
    slide(-23);
    EXPECT_EQ(openBrightnessTransactions(), 1);
    phone_->touchCancel();
    EXPECT_EQ(openBrightnessTransactions(), 0);
}

// Room for a controller is not one.
TEST_F(BrightnessOnReal, OnFourteenWithoutAControllerTheServiceIsTold) {
    phone_->missingClass("SBDisplayBrightnessController");
    bootReal("14.2");
    openToolbar();
    const double before = display();
    slide(23);
    EXPECT_NEAR(display(), before + 20.0 / 120, 1e-6);
    EXPECT_EQ(openBrightnessTransactions(), 1);
    phone_->touchUp();
}

// Nothing tells the slider of a level then: what it shows is its own doing.
TEST_F(BrightnessOnReal, WithoutAnyFormTheFingerMovesTheFillAndTheGlyph) {
    phone_->missingClass("SBBrightnessController");
    phone_->boot();
    openToolbar();
    const double before = fill(brightnessSlider());
    slide(23);
    EXPECT_NEAR(fill(brightnessSlider()), before + 20, 1e-5);
    brightnessSlider().adjustValue(1);
    EXPECT_STREQ(glyphState(brightnessSlider()).utf8(), "full");
    brightnessSlider().adjustValue(0.5f);
    EXPECT_STREQ(glyphState(brightnessSlider()).utf8(), "mid");
    phone_->touchUp();
}

TEST_F(BrightnessOnReal, WithoutAnyFormTheSliderStillFollows) {
    phone_->missingClass("SBBrightnessController");
    phone_->boot();
    auto made = slider<VNTBrightnessSlider>(bar);
    made.adjustValue(0.75f);
    made.adjustValue(0.8f);
    EXPECT_EQ(display(), 0.5);
    EXPECT_EQ(phone_->loggedCount("is off"), 0);
    EXPECT_NE(text(hookReport()).find("\nform brightness: none\n"), std::string::npos);
    expectUnhurt();
}

}  // namespace
}  // namespace vantori::tests
