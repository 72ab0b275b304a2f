// The outline of a layer: rectangle, circular corners or continuous ones. A continuous corner starts
// to bend at about one and a half radii from the corner, with no jump in curvature, as icons do.
#pragma once

#include <cairo.h>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// How far from its corner an outline bends at most, in radii.
constexpr double cornerReach = 1.52866;

// Adds the closed outline to the current path. The radius is clamped to half the shorter side.
void addOutline(cairo_t* context, Rect rect, double radius, bool continuous);

}  // namespace simulator::rendering
