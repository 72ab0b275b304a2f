// The panel of the brightness slider: three toggles, then the slider, in a strip 100 points high.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

using namespace platform;

struct VNTBrightnessSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTBrightnessSliderContainerViewController"};
    using UIViewController::UIViewController;
    void setupSliderView() const { send<"setupSliderView">(); }
    VNTSlider brightnessSlider() const { return send<"brightnessSlider", VNTSlider>(); }
    // Kept, and read by nothing.
    void setShouldShowSwitcher(bool shows) const { send<"setShouldShowSwitcher:">(shows); }
};

void registerBrightnessPanel();

}  // namespace vantori
