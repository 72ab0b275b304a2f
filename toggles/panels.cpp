#include "toggles/panels.hpp"

#include "toggles/brightness_slider.hpp"
#include "toggles/catalogue.hpp"
#include "toggles/volume_slider.hpp"

namespace vantori {

void registerPanels() {
    registerSlider();
    registerVolumeSlider();
    registerBrightnessSlider();
    registerToggles();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
