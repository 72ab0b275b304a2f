// A phone with sliders: loose ones, and those of the open toolbar.
#pragma once

#include "platform/definition.hpp"
#include "tests/library_phone.hpp"
#include "toggles/brightness_slider.hpp"
#include "toggles/volume_slider.hpp"

namespace vantori::tests {

class SliderPhone : public LibraryPhone {
  protected:
    template <class T = VNTSlider>
    static Strong<T> slider(CGRect frame) {
        return create<T, "initWithFrame:">(frame);
    }
    // Where the fill's left edge is: minus the width for 0, nothing for 1.
    static double fill(VNTSlider slider) { return slider.frontView().frame().origin.x; }
    static double shown(VNTSlider slider) {
        const double width = slider.bounds().size.width;
        return (width + fill(slider)) / width;
    }
    static NSString glyphState(VNTSlider slider) {
        return slider.packageView().send<"stateName", NSString>();
    }
    static std::string text(NSString string) { return string ? string.utf8() : "nil"; }

    static VNTSBToolBarController toolbar() { return VNTSBToolBarController::shared(); }
    static UIView brightnessPage() {
        return toolbar().page<VNTBrightnessSliderContainerViewController>().view();
    }
    static UIView volumePage() {
        return toolbar().page<VNTVolumeSliderContainerViewController>().view();
    }
    static VNTBrightnessSlider brightnessSlider() {
        return toolbar()
            .page<VNTBrightnessSliderContainerViewController>()
            .send<"brightnessSlider", VNTBrightnessSlider>();
    }
    static VNTVolumeSlider volumeSlider() {
        return toolbar()
            .page<VNTVolumeSliderContainerViewController>()
            .send<"volumeSlider", VNTVolumeSlider>();
    }
    static CGPoint onBrightness() { return middleOf(brightnessSlider()); }
    static CGPoint onVolume() { return middleOf(volumeSlider()); }
    void openToolbar() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
        phone_->clear();
    }
    // Something plays from the process of that number; nothing does for 0.
    static void playFrom(int process) {
        SpringBoard::shared().send<"setNowPlayingProcessPID:">(process);
    }
    int called(const char* cls, const char* message) const {
        return phone_->calledCount(cls, message);
    }
    // The first argument of the latest run; less than any level when there was none.
    double given(const char* cls, const char* message) const {
        auto call = phone_->lastCall(cls, message);
        if (!call) return -1;
        return static_cast<double>(simulator::scenario::asNumber(call->front())->value);
    }
    double brightnessGiven() const {
        return given("SBBrightnessController", "_setBrightnessLevel:showHUD:");
    }
    double volumeGiven() const { return given("AVSystemController", "setActiveCategoryVolumeTo:"); }
    void expectUnhurt() const { EXPECT_EQ(phone_->crashed(), std::nullopt); }
};

}  // namespace vantori::tests
