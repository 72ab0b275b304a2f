// A tree as the list of steps in which it is painted, each with a print of what it paints. Of two
// trees that begin with the same prints the same steps give the same pixels: they need not be painted
// again. A see-through group is one step, since its pixels reach the canvas at once.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

struct Step {
    std::uint64_t print;
    std::size_t end;  // the first step after the node and all that is under it
};

std::vector<Step> stepsOf(const Node& root);

// The number of steps at the beginning that are the same in both.
std::size_t commonSteps(const std::vector<Step>& one, const std::vector<Step>& other);

constexpr double invisible = 0.002;  // less than half a step of an 8-bit channel

// From the parent's coordinates to those of the node's bounds.
cairo_matrix_t placement(const Node& node);
bool isDrawable(const cairo_matrix_t& matrix);
bool isShown(const Node& node);
bool hasContent(const Node& node);
// Painted off screen first, at `alpha` of its own and of what it lies in.
bool isGroup(const Node& node, double alpha);

}  // namespace simulator::rendering
