// What the phone's switches do to the rest of it: the battery's colour, the screen's tint, the
// interface that may turn again.
#pragma once

#include "simulator/rendering/scene.hpp"

namespace simulator {

void followSettings();

// Night Shift and True Tone: coloured glass over the whole screen.
void tintScreen(rendering::Node& root);

}  // namespace simulator
