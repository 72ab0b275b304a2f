// Handles of the UIKit classes that only the phone itself uses. Those that the library uses too are
// in platform/uikit.hpp and uikit_controls.hpp.
#pragma once

#include "platform/uikit_controls.hpp"
#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/table.hpp"

namespace simulator {

using namespace platform;  // the phone is written in the same object layer as the library

VANTORI_CLASS(UITouch, Object);
VANTORI_CLASS(UIEvent, Object);
VANTORI_CLASS(UIVisualEffect, Object);
VANTORI_NAMED_CLASS(UIBackdropView, UIView, "_UIBackdropView");
VANTORI_CLASS(UILongPressGestureRecognizer, UIGestureRecognizer);
VANTORI_CLASS(UIScreenEdgePanGestureRecognizer, UIPanGestureRecognizer);
VANTORI_CLASS(UIAlertView, UIView);
VANTORI_CLASS(UISwitch, UIControl);
VANTORI_CLASS(UIAlertController, UIViewController);
VANTORI_CLASS(UIAlertAction, Object);
VANTORI_CLASS(NSValue, Object);
VANTORI_CLASS(NSTimer, Object);
VANTORI_NAMED_CLASS(ClockTimer, NSTimer, "VirtualClockTimer");
VANTORI_CLASS(NSException, Object);
// What a view or layer shows on screen now, mid-animation.
VANTORI_NAMED_CLASS(ViewPresentation, Object, "UIViewPresentation");

}  // namespace simulator
