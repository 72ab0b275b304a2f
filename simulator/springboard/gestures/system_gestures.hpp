// The gestures that belong to the system: pulls from the bottom edge, which the switcher's gesture
// manager (Control Center on phones with a home button) is told of, and pulls from the status bar.
// Distances are points, velocities points per second, positive away from the edge.
#pragma once

#include <optional>

#include "simulator/springboard/gestures/system_pan.hpp"

namespace simulator {

using GestureStage = UIGestureRecognizer::State;  // began, changed, ended or cancelled

struct PullReport {
    GestureStage stage;
    double edge;      // along the bottom edge of the interface
    double distance;  // above it
    double velocity;
};

// One report, exactly. False when the class that would hear it is not on this phone.
bool reportSwitcherPull(const PullReport& report);
bool reportControlCenterPull(const PullReport& report);
// The finger is at that place of the display and has that velocity there, as the recogniser of the
// status bar answers them.
bool reportStatusBarPull(GestureStage stage, CGPoint location, CGPoint velocity);

// Whether the system lets a pull begin there: along the bottom edge, with a velocity in points per
// second of the interface.
bool pullMayBegin(double edge, CGPoint velocity);

// A finger that goes up from the bottom edge at an even speed and is released at that velocity. It is
// recognised once it has moved 10 points; time passes on the clock.
void pullFromEdge(double edge, double distance, double seconds, double releaseVelocity);

// Follows one finger in the interface and takes it over when it pulls from an edge.
class SystemGestures {
  public:
    void down(CGPoint place);
    // True while the finger belongs to the system; the first time, others lose it.
    bool moved(CGPoint place, double time);
    // True when the finger belonged to the system.
    bool up(double time);
    bool cancelled();

  private:
    enum class Kind { none, bottomEdge, foot, statusBar };
    void report(GestureStage stage, double velocity);
    bool begins(CGPoint velocity) const;

    Kind kind_ = Kind::none;
    bool taken_ = false;
    CGPoint start_{};
    CGPoint place_{};
    CGPoint velocity_{};
    double time_ = 0;
};

}  // namespace simulator
