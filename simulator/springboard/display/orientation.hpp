// Which way the interface is turned, and who is told when it turns. Numbers are the platform's
// interface orientations; the device's own number for the same turn is equal.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

long activeOrientation();
// Not retained, as on the platform.
void addOrientationObserver(Object observer);

// The device turns first, then the interface: observers hear before and after, the screen's bounds
// and the windows follow, and SpringBoard posts that it has turned.
void turnInterface(long orientation);

// Someone turns the phone in their hand: the interface follows unless its orientation is locked, and
// catches up when it is unlocked.
void turnPhone(long orientation);
// How often the interface was told to turn, also to where it was already.
long turnsSoFar();
void unlockTurn();

}  // namespace simulator
