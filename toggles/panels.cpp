#include "toggles/panels.hpp"

namespace vantori {

void registerPanels() {
    registerSlider();
    registerEverydayPage();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
