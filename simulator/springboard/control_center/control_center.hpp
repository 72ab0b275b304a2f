// Control Center: a panel that comes down from the status bar, or up from the bottom edge on phones
// with a home button, and follows the finger both ways. It also shows one module alone, expanded, for
// whoever asks.
#pragma once

#include "platform/control_center.hpp"
#include "simulator/springboard/gestures/system_pan.hpp"

namespace simulator {

SBControlCenterController controlCenter();
bool controlCenterIsOpen();
void dismissControlCenter(bool animated);

// Where the finger of the next bottom-edge report is, in the display.
void setControlCenterFinger(CGPoint location);
// The recogniser of the status bar, which the system drives.
SBSystemPanGestureRecognizer statusBarPan();

void registerControlCenter();

}  // namespace simulator
