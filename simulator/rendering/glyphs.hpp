// The tables of glyphs by family, on a grid of 24 x 24 units; symbols.cpp looks names up in them.
#pragma once

#include <span>

#include "simulator/rendering/pen.hpp"

namespace simulator::rendering {

inline constexpr double turn = 2 * 3.14159265358979323846;  // radians

struct Glyph {
    const char* name;
    // `progress` 0 to 1 where the glyph has degrees.
    void (*draw)(Pen& pen, double progress);
};

std::span<const Glyph> connectivityGlyphs();
std::span<const Glyph> mediaGlyphs();
std::span<const Glyph> toggleGlyphs();
std::span<const Glyph> interfaceGlyphs();

}  // namespace simulator::rendering
