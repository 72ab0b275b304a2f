// The pull at the bottom edge, from began to ended or cancelled. In application style (an application
// in front, in portrait, "alwaysSpringBoardStyle" off) the application's scene is lifted under the
// finger; in every other case the SpringBoard toolbar follows it. Distances in points, velocities in
// points per second, negative back toward the edge.
#pragma once

#include "hooks/pull_report.hpp"

namespace vantori {

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

// The hooks of the switcher's gesture manager, for either form of a report.
PullHandler pullBegan;
PullHandler pullUpdated;
PullHandler pullEnded;
PullHandler pullCancelled;

}  // namespace vantori
