// The pull at the bottom edge, from began to ended or cancelled. In application style (an application
// in front, in portrait, "alwaysSpringBoardStyle" off) the application's scene is lifted under the
// finger; in every other case the SpringBoard toolbar follows it. Distances in points, velocities in
// points per second, negative back toward the edge.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// A report of the grabber tongue: the tongue, the distance and the velocity.
using TongueReport = System<void(Object, double, double)>;

// Where a report comes from decides how a pull begins.
struct PullSource {
    double edgePosition;  // along the bottom edge, in points
    bool everywhere;      // every position counts as a hit; the zones are not asked
    bool haptic;          // a hit gives one medium impact
};

// The place along the bottom edge of the current interface orientation for a location in the screen.
double edgePosition(CGPoint location);

void clearPull();
void beginPull(const TongueReport& system, const PullSource& source, Object tongue, double distance,
               double velocity);
void updatePull(const TongueReport& system, Object tongue, double distance, double velocity);
void endPull(const TongueReport& system, Object tongue, double distance, double velocity);
void cancelPull(const TongueReport& system, Object tongue, double distance, double velocity);

// What a pull outside every zone does: the system's own handling runs.
void letSystemPull(const TongueReport& system, Object tongue, double distance, double velocity);

// The hooks of the switcher's gesture manager.
void pullBegan(TongueReport system, Object self, Object tongue, double distance, double velocity);
void pullUpdated(TongueReport system, Object self, Object tongue, double distance, double velocity);
void pullEnded(TongueReport system, Object self, Object tongue, double distance, double velocity);
void pullCancelled(TongueReport system, Object self, Object tongue, double distance,
                   double velocity);

}  // namespace vantori
