// Labels and fonts.
#pragma once

#include "simulator/rendering/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

// What a label shows, for the scene.
rendering::Text textOf(UILabel label);

void registerFont();
void registerLabel();

}  // namespace simulator
