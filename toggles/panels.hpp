// Every class of toggles, sliders and their panels, for those who make them all. The everyday page,
// which shows them, stands above them.
#pragma once

#include "toggles/brightness_panel.hpp"
#include "toggles/slider.hpp"
#include "toggles/volume_panel.hpp"

namespace vantori {

void registerPanels();

}  // namespace vantori
