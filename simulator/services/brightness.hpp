// The brightness of the display, from 0 to 1: SpringBoard's controller that changes it and Control
// Center's display module that follows it. The level itself is the screen's.
#pragma once

namespace simulator {

// Tells those who listen to the screen, then the delegates of the display modules.
void setBrightness(double level);

void registerBrightness();

}  // namespace simulator
