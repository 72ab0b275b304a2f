// Gesture recognisers: a state machine as a table, the delegate's say, actions.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

// Called by the view that takes it on; empty to let go.
void attach(UIGestureRecognizer recognizer, UIView view);

void registerRecognizers();

}  // namespace simulator
