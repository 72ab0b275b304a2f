// The scenes of the application in front, which an open toolbar lifts off the bottom edge: their container,
// how it is put in its place, and the spring that lifts and lowers it. Points.
//
// There are two ways to the container. The hooks ask the layout controller for it by name; the pages and
// the dismiss gesture take the second subview of that controller's view. Both lead to the same view, and
// each stays as it is: which question is asked is part of the sequence of messages. Deliberate.
#pragma once

#include "pages/spring.hpp"

namespace vantori {

// By name.
UIView sceneContainer();

// As the second subview. Empty when there is none.
UIView liftedContainer();

// Puts the container that many points above its place, with that corner radius, at once.
void placeScene(UIView container, double lift, double cornerRadius);

// The same for the container that has the name, with the shared spring.
void springScene(double lift, double cornerRadius);

// Springs the second subview back over the whole screen, with square corners.
void lowerLiftedScene(UIView::Completion completion = {});

}  // namespace vantori
