// Text with pango in the font Inter, unhinted, so that a size in points is the same at every scale.
#pragma once

#include <cairo.h>

#include <limits>
#include <string>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

inline constexpr double unlimitedWidth = std::numeric_limits<double>::infinity();

// The room that the text needs, in points, rounded up to half a point. `lines` 0 means any number;
// a width that is not positive counts as unlimited. The empty text needs nothing.
Size measure(const std::string& text, double fontSize, int weight, double maxWidth = unlimitedWidth,
             int lines = 1);

// Draws into `rect`, centred vertically. With lines 0 the text is cut to the lines that fit.
void drawText(cairo_t* context, const Text& text, Rect rect, Colour colour);

}  // namespace simulator::rendering
