#include "toggles/panels.hpp"

#include "toggles/brightness_slider.hpp"
#include "toggles/volume_slider.hpp"

#include "toggles/catalogue.hpp"

namespace vantori {

void registerPanels() {
    registerSlider();
    registerVolumeSlider();
    registerBrightnessSlider();
    registerToggles();
    registerEverydayPage();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
