// Reachability: with the setting on, the system's gesture that would pull the screen down opens the
// toolbar instead; with it off, the system's own runs while no dismissal is under way.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

bool shouldBeginReachabilityGesture(System<bool(Object)> system, Object self, Object gesture);
bool reachabilityEnabled(System<bool()> system, Object self);
void toggleReachability(System<void()> system, Object self);
// The same on 11, which names who asks for it.
void toggleReachabilityFor(System<void(Object)> system, Object self, Object observer);
void handleReachabilityPan(System<void(Object)> system, Object self, Object gesture);
// The action of the swipe down at the foot of phones without a home button, where the home bar does not
// have it. It may come in any state of the gesture; the swipe is done when that has ended.
void reachabilitySwiped(System<void(Object)> system, Object self, Object gesture);

}  // namespace vantori
