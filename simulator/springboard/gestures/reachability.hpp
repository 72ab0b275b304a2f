// Reachability: the gesture that brings the upper part of the screen down to the thumb.
#pragma once

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(SBReachabilityManager, Object);

SBReachabilityManager reachabilityManager();

// A finger has gone down at the foot of a phone without a home button, and left the screen: the gesture
// begins if the switcher's gesture manager lets it, and its action runs as it begins and as it ends.
// Nothing on a phone whose classes have no such action.
void swipeForReachability();
void registerReachability();

}  // namespace simulator
