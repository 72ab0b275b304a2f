// What UIKit adds to Foundation's classes: records in values, timers on the phone's clock.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

void addToFoundation();

}  // namespace simulator
