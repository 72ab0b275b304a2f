#include "toggles/controls.hpp"

#include "toggles/brightness_slider.hpp"
#include "toggles/catalogue.hpp"
#include "toggles/volume_slider.hpp"

namespace vantori {

void registerControls() {
    registerSlider();
    registerVolumeSlider();
    registerBrightnessSlider();
    registerToggles();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
