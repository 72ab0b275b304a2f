// Reachability: the gesture that brings the upper part of the screen down to the thumb.
#pragma once

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(SBReachabilityManager, Object);

SBReachabilityManager reachabilityManager();
void registerReachability();

}  // namespace simulator
