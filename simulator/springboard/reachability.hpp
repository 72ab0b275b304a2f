// Reachability: the gesture that brings the upper part of the screen down to the thumb.
#pragma once

#include "simulator/springboard/classes.hpp"

namespace simulator {

SBReachabilityManager reachabilityManager();
void registerReachability();

}  // namespace simulator
