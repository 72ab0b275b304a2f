// Every control's class: toggles, sliders and the panels that hold both, for those who make them all.
#pragma once

#include "toggles/brightness_panel.hpp"
#include "toggles/slider.hpp"
#include "toggles/volume_panel.hpp"

namespace vantori {

void registerControls();

}  // namespace vantori
