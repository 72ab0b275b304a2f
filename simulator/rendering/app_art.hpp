// What an open application shows: believable screens as scene trees, in light and dark. They leave
// room for the status bar at the top and the home indicator at the bottom, and draw neither.
#pragma once

#include <string>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

// The whole content of the application's window, `size` points, placed at 0,0. Turned and odd sizes
// only show less or more of it. An unknown application shows a screen in its icon's spirit.
Node appScreen(const std::string& bundleIdentifier, Size size, bool dark);

// Whether the status bar over that screen should be white.
bool hasDarkTop(const std::string& bundleIdentifier, bool dark);

}  // namespace simulator::rendering
