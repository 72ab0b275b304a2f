// SpringBoard itself: launching, turning, locking.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// Swallowed while the SpringBoard toolbar is open.
void deviceSetOrientation(System<void(long, bool)> system, Object self, long orientation,
                          bool animated);
void postOrientationChanged(System<void(bool)> system, Object self, bool animated);
void didFinishLaunching(System<void(Object)> system, Object self, Object application);
void lockUI(System<void(int, Object)> system, Object self, int source, Object options);

}  // namespace vantori
