#include "simulator/live/pace.hpp"

#include <algorithm>
#include <utility>

#include "simulator/runtime/clock.hpp"

namespace simulator::live {

namespace {

constexpr double slowly = 0.1;      // of real time, in slow motion
constexpr double longestGap = 0.1;  // seconds of real time that are made up for at most

}  // namespace

void Pace::step() {
    paused_ = true;
    ++steps_;
}

int Pace::frames(Moment now) {
    const double passed = std::chrono::duration<double>(now - before_).count();
    before_ = now;
    if (paused_) {
        behind_ = 0;
        return std::exchange(steps_, 0);
    }
    behind_ = std::min(behind_ + passed, longestGap);
    int count = 0;
    for (; behind_ >= Clock::frame; behind_ -= Clock::frame) ++count;
    return count;
}

double Pace::frameTime() const { return Clock::frame * (slow_ && !paused_ ? slowly : 1); }

double Pace::rest() const { return Clock::frame - behind_; }

}  // namespace simulator::live
