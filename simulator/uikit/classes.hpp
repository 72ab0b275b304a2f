// Handles of the UIKit classes that only the phone itself uses. Those that the library uses too are
// in platform/uikit.hpp and uikit_controls.hpp.
#pragma once

#include "platform/uikit_controls.hpp"
#include "simulator/uikit/table.hpp"

namespace simulator {

using namespace platform;  // the phone is written in the same object layer as the library

#define VANTORI_CLASS(type, base, text)          \
    struct type : base {                         \
        static constexpr FixedString name{text}; \
        using base::base;                        \
    }

VANTORI_CLASS(UITouch, Object, "UITouch");
VANTORI_CLASS(UIEvent, Object, "UIEvent");
VANTORI_CLASS(UIVisualEffect, Object, "UIVisualEffect");
VANTORI_CLASS(UIBackdropView, UIView, "_UIBackdropView");
VANTORI_CLASS(UILongPressGestureRecognizer, UIGestureRecognizer, "UILongPressGestureRecognizer");
VANTORI_CLASS(UIScreenEdgePanGestureRecognizer, UIPanGestureRecognizer,
              "UIScreenEdgePanGestureRecognizer");
VANTORI_CLASS(UIAlertView, UIView, "UIAlertView");
VANTORI_CLASS(UIAlertController, UIViewController, "UIAlertController");
VANTORI_CLASS(UIAlertAction, Object, "UIAlertAction");
VANTORI_CLASS(NSValue, Object, "NSValue");
VANTORI_CLASS(NSTimer, Object, "NSTimer");
VANTORI_CLASS(ClockTimer, NSTimer, "VirtualClockTimer");
VANTORI_CLASS(NSException, Object, "NSException");
// What a view or layer shows on screen now, mid-animation.
VANTORI_CLASS(ViewPresentation, Object, "UIViewPresentation");

#undef VANTORI_CLASS

}  // namespace simulator
