// What UIKit adds to Foundation's classes: records in values; timers and delayed messages on the
// phone's clock.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

void addValues();
void addTimers();

}  // namespace simulator
