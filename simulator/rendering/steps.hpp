// A tree as the list of steps in which it is painted, each with a print of what it paints and the rows
// that it reaches. Of two trees that begin with the same prints the same steps give the same pixels:
// they need not be painted again. A see-through group is one step, since its pixels reach the canvas
// at once.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/rendering/rows.hpp"
#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

struct Step {
    std::uint64_t print;
    std::size_t end;  // the first step after the node and all that is under it
    Rows drawn;       // at most
    Rows read;        // by a blur, of what lies behind it
    Rows under;       // drawn by the steps up to `end`
};
using Steps = std::vector<Step>;

// On a canvas of so many rows at `scale` pixels a point.
Steps stepsOf(const Node& root, double scale, int rows);

// The number of steps at the beginning that are the same in both.
std::size_t commonSteps(const Steps& one, const Steps& other);
// The rows that may show something else after the one than after the other.
Rows changedRows(const Steps& before, const Steps& after);
// The fewest rows around `rows` that no step from `first` on crosses.
Rows uncrossed(Rows rows, const Steps& steps, std::size_t first);

constexpr double invisible = 0.002;  // less than half a step of an 8-bit channel

// From the parent's coordinates to those of the node's bounds.
cairo_matrix_t placement(const Node& node);
bool isDrawable(const cairo_matrix_t& matrix);
double scaleOf(const cairo_matrix_t& matrix);
bool isShown(const Node& node);
bool hasContent(const Node& node);
// Painted off screen first, at `alpha` of its own and of what it lies in.
bool isGroup(const Node& node, double alpha);
// How far a shadow's blur reaches, in points.
double shadowMargin(const Shadow& shadow);
Rect inset(Rect rect, double by);

}  // namespace simulator::rendering
