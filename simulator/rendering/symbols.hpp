// Vector drawings by name: the glyphs of the status bar, of buttons and of sliders. Each is drawn on a
// grid of 24 x 24 units that is fitted, centred, into the box.
#pragma once

#include <cairo.h>

#include <string>
#include <string_view>
#include <vector>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// An unknown name draws nothing.
void drawSymbol(cairo_t* context, const Symbol& symbol, Rect box);
bool hasSymbol(std::string_view name);
// All names, sorted.
std::vector<std::string> symbolNames();

}  // namespace simulator::rendering
