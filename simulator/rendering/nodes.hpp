// Short ways to make the nodes that pictures of screens are built from. Frames are in the parent.
#pragma once

#include <string>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

Node fillNode(Rect frame, Colour colour, double radius = 0);
Node textNode(Rect frame, const std::string& text, double size, int weight, Colour colour,
              TextAlignment alignment = TextAlignment::left, int lines = 1);
Node symbolNode(Rect frame, const std::string& name, Colour colour, double progress = 1);
Node imageNode(Rect frame, PictureRef picture, int contentMode = 0);

}  // namespace simulator::rendering
