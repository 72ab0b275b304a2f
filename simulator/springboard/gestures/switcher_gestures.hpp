// The bottom edge of phones without a home button: the fluid switcher's gesture manager, its grabber
// tongue, and the trapezoid in which such gestures may begin. By themselves they bring the user home.
#pragma once

#include "platform/springboard.hpp"
#include "simulator/springboard/gestures/system_pan.hpp"

namespace simulator {

VANTORI_CLASS(SBFluidSwitcherGestureExclusionTrapezoid, Object);

SBFluidSwitcherGestureManager gestureManager();
SBGrabberTongue grabberTongue();
// The recogniser of the tongue's edge pull, which the system drives.
SBSystemPanGestureRecognizer edgePullPan();
SBFluidSwitcherGestureExclusionTrapezoid exclusionTrapezoid();

void registerSwitcherGestures();

}  // namespace simulator
