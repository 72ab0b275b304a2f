// The panel of the volume slider: three toggles, then the slider, in a strip 100 points high.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

using namespace platform;

struct VNTVolumeSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTVolumeSliderContainerViewController"};
    using UIViewController::UIViewController;
    void setupSliderView() const { send<"setupSliderView">(); }
    VNTSlider volumeSlider() const { return send<"volumeSlider", VNTSlider>(); }
};

void registerVolumePanel();

}  // namespace vantori
