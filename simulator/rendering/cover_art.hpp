// Covers for music, drawn by the phone itself: each name always gives the same picture, different
// names different ones.
#pragma once

#include <string>

#include "simulator/rendering/picture.hpp"

namespace simulator::rendering {

// A square picture of that side, in points.
PictureRef coverPicture(const std::string& name, double side);

}  // namespace simulator::rendering
