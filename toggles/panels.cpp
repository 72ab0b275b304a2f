#include "toggles/panels.hpp"

#include "toggles/catalogue.hpp"

namespace vantori {

void registerPanels() {
    registerSlider();
    registerToggles();
    registerEverydayPage();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
