// The screens of single applications; app_art.cpp chooses among them.
#pragma once

#include <string>

#include "simulator/rendering/app_style.hpp"

namespace simulator::rendering {

Node notesScreen(Size size, bool dark);
Node mailScreen(Size size, bool dark);
Node messagesScreen(Size size, bool dark);
Node settingsScreen(Size size, bool dark);
Node mapsScreen(Size size, bool dark);
Node photosScreen(Size size, bool dark);
Node musicScreen(Size size, bool dark);
Node cameraScreen(Size size, bool dark);
Node browserScreen(Size size, bool dark);
Node phoneScreen(Size size, bool dark);
Node plainScreen(const std::string& bundleIdentifier, Size size, bool dark);

}  // namespace simulator::rendering
