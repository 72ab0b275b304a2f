// The container of the application in front, which a pull lifted and rounded, as those below the
// toolbars find it: by its place among the views of the scene layout.
#pragma once

#include "platform/springboard.hpp"

namespace vantori {

using namespace platform;

// The second of the layout's views; the first is the toolbar behind it. Empty when there is none.
UIView liftedContainer();

// Where an application rests: the whole screen, with square corners.
void restScene(UIView container);

}  // namespace vantori
