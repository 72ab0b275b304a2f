// A pan recogniser that the system drives itself: the bottom edge's and the status bar's. Its place,
// translation and velocity are those it was last told, in the display's own coordinates (portrait).
#pragma once

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

// It answers what it was last told.
VANTORI_CLASS(SBSystemPanGestureRecognizer, UIPanGestureRecognizer);

struct Finger {
    CGPoint location{};
    CGPoint velocity{};  // points per second
    UIGestureRecognizer::State state = UIGestureRecognizer::possible;
};

Strong<SBSystemPanGestureRecognizer> makeSystemPan(UIView view);
void drive(SBSystemPanGestureRecognizer recognizer, const Finger& finger);

void registerSystemPan();

}  // namespace simulator
