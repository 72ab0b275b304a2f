// The scene container of the application in front, and the spring that lifts and lowers it.
#pragma once

#include "platform/springboard.hpp"

namespace vantori {

using namespace platform;

UIView sceneContainer();

// Puts the container that many points above its place, with that corner radius, at once.
void placeScene(UIView container, double lift, double cornerRadius);

// The same, with the shared spring.
void springScene(double lift, double cornerRadius);

}  // namespace vantori
