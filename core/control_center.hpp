// The Control Center replacement: with "replaceCC" on, the gestures that would open the system's
// Control Center open the SpringBoard toolbar.
#pragma once

#include "core/pull_tracking.hpp"

namespace vantori {

// Whether the device has no home button, as the platform says (2 means none).
bool hasNoHomeButton();

void statusBarPulledDown(System<void(Object)> system, Object self, Object recognizer);
void controlCenterPullBegan(TongueReport system, Object self, Object tongue, double distance,
                            double velocity);
void controlCenterPullUpdated(TongueReport system, Object self, Object tongue, double distance,
                              double velocity);
void controlCenterPullEnded(TongueReport system, Object self, Object tongue, double distance,
                            double velocity);
void controlCenterPullCancelled(TongueReport system, Object self, Object tongue, double distance,
                                double velocity);

}  // namespace vantori
