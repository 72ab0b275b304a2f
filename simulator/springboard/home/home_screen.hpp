// The home screen: one page of icons, a page dot, and the dock.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

// Makes the view; it comes into its window by moveHomeScreen.
void makeHomeScreen();
void moveHomeScreenToWindow();
// For the interface's present orientation.
void layHomeScreen();
// Where the application's icon stands, in the interface.
CGRect iconFrame(const std::string& identifier);

void registerHomeScreen();

}  // namespace simulator
