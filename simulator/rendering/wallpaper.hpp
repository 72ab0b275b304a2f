// The phone's wallpaper: a deep gradient with soft bands of light, in a light and a dark version.
#pragma once

#include "simulator/rendering/picture.hpp"

namespace simulator::rendering {

// Opaque pixels for a screen of `points`; made once for each size and kept.
PictureRef wallpaper(Size points, bool dark);

}  // namespace simulator::rendering
