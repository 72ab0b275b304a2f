// The strip in which toggles and sliders stand, evenly spaced: as wide as the screen's short side,
// 100 points high. Gaps of one width lie before, between and after the elements. Lengths are points.
#pragma once

#include "platform/geometry.hpp"

namespace vantori::strip {

inline constexpr double height = 100;
inline constexpr double toggleSide = 50;
inline constexpr double sliderWidth = 120;
inline constexpr double top = 25;  // above an element, and below it

// The gap that so many elements, so wide together, leave in a strip of that width.
constexpr double gap(double width, double occupied, double elements) {
    return (width - occupied) / (elements + 1);
}

// An element that stands after `before` toggles.
constexpr CGRect frame(double gap, double before, double width) {
    return platform::rect(gap * (before + 1) + toggleSide * before, top, width, toggleSide);
}
constexpr CGRect toggleFrame(double gap, double before) { return frame(gap, before, toggleSide); }

// Three toggles and then one slider: positions 0 to 2, and the slider behind them.
constexpr double panelGap(double width) { return gap(width, 3 * toggleSide + sliderWidth, 4); }
constexpr CGRect sliderFrame(double gap) { return frame(gap, 3, sliderWidth); }

}  // namespace vantori::strip
