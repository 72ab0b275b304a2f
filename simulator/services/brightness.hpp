// The brightness of the display, from 0 to 1: SpringBoard's controllers that change it, the display
// service below them, and Control Center's display module that follows it. The level itself is the
// screen's.
#pragma once

#include "platform/object.hpp"

namespace simulator {

// Tells those who listen to the screen, then the delegates of the display modules.
void setBrightness(double level);

// Those of the display service that were not released yet.
int openBrightnessTransactions();

// What was passed on beside the latest level.
long numberBesideBrightness();

// The one that SpringBoard keeps; empty on systems without its class.
platform::Object displayBrightnessController();

void registerBrightness();

}  // namespace simulator
