// How the progress of an animation runs from 0 to 1: cubic curves and springs. Seconds.
#pragma once

#include <variant>

namespace simulator {

// A cubic from (0, 0) to (1, 1) with two control points, as CAMediaTimingFunction has.
struct Curve {
    double x1, y1, x2, y2;
    double progress(double fraction) const;

    static constexpr Curve easeInOut() { return {0.42, 0, 0.58, 1}; }
    static constexpr Curve easeIn() { return {0.42, 0, 1, 1}; }
    static constexpr Curve easeOut() { return {0, 0, 0.58, 1}; }
    static constexpr Curve linear() { return {0, 0, 1, 1}; }
};

// The spring that UIKit derives from a duration: mass 1, settled to a thousandth at its end.
class Spring {
  public:
    // Damping ratio (1 does not swing); velocity in whole distances per second, toward the target.
    Spring(double duration, double damping, double velocity);
    double progress(double seconds) const;
    double frequency() const { return frequency_; }  // undamped, radians per second

  private:
    double damping_;
    double velocity_;
    double frequency_;
};

using Timing = std::variant<Curve, Spring>;

// Exactly 0 before the start and exactly 1 from the end on.
double progress(const Timing& timing, double seconds, double duration);

}  // namespace simulator
