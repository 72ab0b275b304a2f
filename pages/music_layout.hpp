// Where the parts of the music page lie, in points of the page, for a screen of the given width.
// The width is read once for each part while the page loads; turning the phone moves none of them.
#pragma once

#include "platform/geometry.hpp"

namespace vantori::music {

using platform::rect;

inline constexpr double artworkRadius = 5;
inline constexpr double fontSize = 15;

inline constexpr double margin = 25;
inline constexpr double artworkSide = 50;
inline constexpr double textGap = 10;  // half of it on each side of the text
inline constexpr double textLeft = margin + artworkSide + textGap / 2;
inline constexpr double lineHeight = 16;
inline constexpr double linePitch = 17.5;
inline constexpr double buttonBlock = 100;  // width of the three buttons
inline constexpr double buttonSide = 27;
inline constexpr double buttonPitch = buttonSide + 9.5;

constexpr CGRect artworkFrame() { return rect(margin, margin, artworkSide, artworkSide); }

// Lines 0 to 2, from the top.
constexpr CGRect lineFrame(double screenWidth, int line) {
    const double width = screenWidth - margin - margin - artworkSide - textGap - buttonBlock;
    return rect(textLeft, margin + linePitch * line, width, lineHeight);
}

// Buttons 0 to 2, from the left. The first lies one point lower than the others: deliberate, it is
// part of the look.
constexpr CGRect buttonFrame(double screenWidth, int button) {
    const double left = screenWidth - margin - buttonBlock;
    return rect(left + buttonPitch * button, button == 0 ? 36 : 35, buttonSide, buttonSide);
}

}  // namespace vantori::music
