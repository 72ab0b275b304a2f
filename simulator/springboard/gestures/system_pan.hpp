// A pan recogniser that the system drives itself: the bottom edge's and the status bar's. Its place,
// translation and velocity are those it was last told, in the display's own coordinates (portrait); it
// answers them in the view that is asked for.
#pragma once

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

// It answers what it was last told.
VANTORI_CLASS(SBSystemPanGestureRecognizer, UIPanGestureRecognizer);

struct Finger {
    CGPoint location{};
    CGPoint velocity{};  // points per second, in the same coordinates
    UIGestureRecognizer::State state = UIGestureRecognizer::possible;
};

Strong<SBSystemPanGestureRecognizer> makeSystemPan(UIView view);
void drive(SBSystemPanGestureRecognizer recognizer, const Finger& finger);

void registerSystemPan();

}  // namespace simulator
