// The pictures that the phone's own views show: icons, application screens, wallpaper, status bar,
// the lock screen's clock. Drawn by simulator/rendering, worn by image views.
#pragma once

#include <string>

#include "simulator/springboard/classes.hpp"

namespace simulator {

// A square icon of that side in points.
UIImage iconImage(const std::string& identifier, double side);

// Gives the view an image view that fills it and shows the application's screen in the interface's
// style and the view's size; dressing again changes the picture.
void dressAsApplication(UIView view, const std::string& identifier);
void dressAsWallpaper(UIView view);
void dressAsStatusBar(UIView view, bool white);
void dressAsLockScreen(UIView view);

// Whether the top of the screen in front is dark.
bool wantsWhiteStatusBar(const std::string& frontIdentifier);

}  // namespace simulator
