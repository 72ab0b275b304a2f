#include "simulator/uikit/animation/timing.hpp"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

constexpr double settled = 0.001;  // how far from the target a spring may be at its end

double bezier(double p1, double p2, double t) {
    double u = 1 - t;
    return 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t;
}

// The envelope at the end of a spring with the frequency w, less what counts as settled.
double residue(double w, double duration, double damping, double velocity) {
    if (damping < 1) {
        double root = std::sqrt(1 - damping * damping);
        return (damping - velocity / w) / root * std::exp(-damping * w * duration) - settled;
    }
    return (1 + (w - velocity) * duration) * std::exp(-w * duration) - settled;
}

// Newton from 5 / duration; the slope is taken from a small step, which is enough here.
double solveFrequency(double duration, double damping, double velocity) {
    double w = 5 / duration;
    for (int i = 0; i < 60; ++i) {
        double step = w * 1e-6;
        double value = residue(w, duration, damping, velocity);
        double slope = (residue(w + step, duration, damping, velocity) - value) / step;
        double next = w - value / slope;
        if (!std::isfinite(next) || next <= 0) break;
        bool done = std::abs(next - w) < 1e-12 * w;
        w = next;
        if (done) break;
    }
    return w;
}

}  // namespace

double Curve::progress(double fraction) const {
    double low = 0, high = 1;
    for (int i = 0; i < 50; ++i) {
        double middle = (low + high) / 2;
        (bezier(x1, x2, middle) < fraction ? low : high) = middle;
    }
    return bezier(y1, y2, (low + high) / 2);
}

Spring::Spring(double duration, double damping, double velocity)
    : damping_(std::clamp(damping, 0.01, 1.0)),
      velocity_(velocity),
      frequency_(solveFrequency(duration, damping_, velocity)) {}

double Spring::progress(double seconds) const {
    double w = frequency_;
    if (damping_ < 1) {
        double swing = w * std::sqrt(1 - damping_ * damping_);
        double lead = (damping_ * w - velocity_) / swing;
        return 1 - std::exp(-damping_ * w * seconds) *
                       (std::cos(swing * seconds) + lead * std::sin(swing * seconds));
    }
    return 1 - std::exp(-w * seconds) * (1 + (w - velocity_) * seconds);
}

double progress(const Timing& timing, double seconds, double duration) {
    if (seconds >= duration) return 1;
    if (seconds <= 0) return 0;
    if (const Spring* spring = std::get_if<Spring>(&timing)) return spring->progress(seconds);
    return std::get<Curve>(timing).progress(seconds / duration);
}

}  // namespace simulator
