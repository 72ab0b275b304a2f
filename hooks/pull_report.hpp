// A report of a pull, as the hooks get it. Up to iOS 13.3 the system names the tongue, the distance and
// the velocity; from 13.4 on, in a fourth part, the gesture too. What follows a pull needs three of
// them; the gesture goes back to the system as it came. Points, points per second.
#pragma once

#include <optional>

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

using ThreePartReport = System<void(Object, double, double)>;
using FourPartReport = System<void(Object, double, double, Object)>;

// The system's own handling of a report, whichever form it has.
class TongueReport {
  public:
    explicit TongueReport(ThreePartReport system) : threeParts_(system) {}
    TongueReport(FourPartReport system, Object gesture) : fourParts_(system), gesture_(gesture) {}

    void operator()(Object tongue, double distance, double velocity) const {
        if (threeParts_) (*threeParts_)(tongue, distance, velocity);
        if (fourParts_) (*fourParts_)(tongue, distance, velocity, gesture_);
    }

  private:
    std::optional<ThreePartReport> threeParts_;
    std::optional<FourPartReport> fourParts_;
    Object gesture_;
};

using PullHandler = void(const TongueReport& system, Object self, Object tongue, double distance,
                         double velocity);

// A handler as the replacement of either form of a report.
template <PullHandler handler>
void inThreeParts(ThreePartReport system, Object self, Object tongue, double distance,
                  double velocity) {
    handler(TongueReport(system), self, tongue, distance, velocity);
}
template <PullHandler handler>
void inFourParts(FourPartReport system, Object self, Object tongue, double distance,
                 double velocity, Object gesture) {
    handler(TongueReport(system, gesture), self, tongue, distance, velocity);
}

}  // namespace vantori
