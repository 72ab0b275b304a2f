// The few things of UIKit that reach the phone's hardware: the finger, the picture of the screen,
// the haptic engine. Places are points of the display in portrait.
#pragma once

#include "simulator/rendering/picture.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

void fingerDown(CGPoint display);
void fingerMoved(CGPoint display);
void fingerUp(CGPoint display);
void fingerCancelled();

UIImage imageOfPicture(const rendering::PictureRef& picture);

// Everything on screen now, in the display's points.
rendering::Node screenScene();

// Impacts given since the last clear: 0 light, 1 medium, 2 heavy.
long hapticsGiven(int style);
void clearHaptics();

// Whether an animation is on its way.
bool anythingMoves();

}  // namespace simulator
