#include "toggles/panels.hpp"

namespace vantori {

void registerPanels() {
    registerEverydayPage();
    registerBrightnessPanel();
    registerVolumePanel();
}

}  // namespace vantori
