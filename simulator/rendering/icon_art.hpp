// Icons and names of the phone's applications, drawn as vector art.
#pragma once

#include <string>

#include "simulator/rendering/picture.hpp"

namespace simulator::rendering {

inline constexpr double iconSide = 60;            // points
inline constexpr double iconCornerRadius = 13.5;  // points, continuous

// The 60 x 60 icon with its corners cut. An application without art of its own gets a coloured tile
// with its initial, always the same for the same identifier.
PictureRef iconPicture(const std::string& bundleIdentifier);
// What stands under the icon: the known name, or the last part of the identifier with a capital.
std::string displayName(const std::string& bundleIdentifier);

}  // namespace simulator::rendering
