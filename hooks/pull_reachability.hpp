// Reachability: with the setting on, the system's gesture that would pull the screen down opens the
// toolbar instead; with it off, the system's own runs while no dismissal is under way.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

bool shouldBeginReachabilityGesture(System<bool(Object)> system, Object self, Object gesture);
bool reachabilityEnabled(System<bool()> system, Object self);
void toggleReachability(System<void()> system, Object self);
void handleReachabilityPan(System<void(Object)> system, Object self, Object gesture);

}  // namespace vantori
