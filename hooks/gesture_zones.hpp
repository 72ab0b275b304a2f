// The zones of the bottom edge in which a pull opens the toolbar: left, middle and right, each
// switched in the settings. Positions and borders are points along the edge of the current interface
// orientation; points on a border belong to the outer zone.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// Whether a pull that begins there is taken over. Asking also prepares the toolbar, whatever the
// answer: its buttons, its window, its toggles and sliders are refreshed.
bool isPointInRangeX(double position);

// A second rule, which no hook asks.
bool isPointInRange(double position);

// The borders for the current width of the screen and of the middle zone.
void updateZoneBorders();

// The system never refuses a bottom-edge gesture because of where it starts.
bool shouldBeginGesture(System<bool(CGPoint, CGPoint, CGRect)>, Object, CGPoint, CGPoint, CGRect);
bool allowHorizontalSwipes(System<bool()>, Object);

}  // namespace vantori
