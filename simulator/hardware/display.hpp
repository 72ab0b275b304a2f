// The display and the interface on it. The display's own coordinates are portrait, whatever way the
// interface is turned; the main screen's bounds and the windows of SpringBoard turn with it.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

// The interface's size in its orientation: width and height change places in landscape.
CGSize interfaceSize(long orientation);

// From points of the interface to points of the display, and how the interface lies on it.
CGPoint toDisplay(CGPoint interfacePoint, long orientation);
CGPoint toInterface(CGPoint displayPoint, long orientation);
// The same for a length or a speed.
CGPoint vectorToDisplay(CGPoint interfaceVector, long orientation);
double rotationOf(long orientation);  // radians, clockwise

// The finger's place in the display for a pull at the bottom edge of the interface: so far along the
// edge (from the left), so far above it.
CGPoint edgeLocation(double along, double above, long orientation);

// Turns a window so that it fills the display upright for the orientation.
void layWindow(UIWindow window, long orientation);

}  // namespace simulator
