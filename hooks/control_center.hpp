// The Control Center replacement: with "replaceCC" on, the gestures that would open the system's
// Control Center open the SpringBoard toolbar.
#pragma once

#include "hooks/pull_tracking.hpp"

namespace vantori {

void statusBarPulledDown(System<void(Object)> system, Object self, Object recognizer);
PullHandler controlCenterPullBegan;
PullHandler controlCenterPullUpdated;
PullHandler controlCenterPullEnded;
PullHandler controlCenterPullCancelled;

}  // namespace vantori
