// The scenes of the application in front, as an open toolbar lifts them: how the pages and the
// dismiss gesture put them back. Points.
#pragma once

#include "pages/spring.hpp"

namespace vantori {

// The container of the scenes: the second subview of the view that lays them out. Empty when there
// is none.
UIView liftedContainer();

// Springs the container back over the whole screen, with square corners.
void lowerLiftedScene(UIView::Completion completion = {});

}  // namespace vantori
