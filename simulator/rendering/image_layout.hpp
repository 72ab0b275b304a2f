// Where a picture lies in its layer: the content modes of UIKit by their numbers.
#pragma once

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// 0 and 3 fill, 1 fit, 2 fill and overflow, 4 centre, 5 top, 6 bottom, 7 left, 8 right, 9 top left,
// 10 top right, 11 bottom left, 12 bottom right. Other numbers fill.
Rect imageRect(Size picture, Rect bounds, int contentMode);

}  // namespace simulator::rendering
