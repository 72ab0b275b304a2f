// The strip in which toggles and sliders stand, evenly spaced: as wide as the screen's short side,
// 100 points high. Gaps of one width lie before, between and after the elements. Lengths are points.
#pragma once

#include "platform/geometry.hpp"

namespace vantori::strip {

inline constexpr double height = 100;
inline constexpr double toggleSide = 50;
inline constexpr double sliderWidth = 120;
inline constexpr double top = 25;  // above an element, and below it

// The places of a row: so many toggles, and behind the last of them one slider or none.
class Row {
  public:
    static constexpr Row ofToggles(double stripWidth, double toggles) {
        return {toggles, stripWidth - toggleSide * toggles, toggles};
    }
    static constexpr Row withSlider(double stripWidth, double toggles) {
        return {toggles, stripWidth - (toggleSide * toggles + sliderWidth), toggles + 1};
    }

    // Counted from 0.
    constexpr CGRect toggle(double index) const { return place(index, toggleSide); }
    constexpr CGRect slider() const { return place(toggles_, sliderWidth); }

  private:
    constexpr Row(double toggles, double spare, double elements)
        : toggles_(toggles), gap_(spare / (elements + 1)) {}

    // Of an element that stands after so many toggles.
    constexpr CGRect place(double before, double width) const {
        return platform::rect(gap_ * (before + 1) + toggleSide * before, top, width, toggleSide);
    }

    double toggles_;
    double gap_;
};

}  // namespace vantori::strip
