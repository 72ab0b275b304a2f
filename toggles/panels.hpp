// Every class of the pages of toggles and sliders, for those who make them all.
#pragma once

#include "toggles/brightness_panel.hpp"
#include "toggles/everyday_page.hpp"
#include "toggles/slider.hpp"
#include "toggles/volume_panel.hpp"

namespace vantori {

void registerPanels();

}  // namespace vantori
