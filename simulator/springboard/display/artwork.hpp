// The pictures that the phone's own views show: icons, application screens, wallpaper, status bar,
// the lock screen's clock. Drawn by simulator/rendering, worn by image views.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

// A square icon of that side in points.
UIImage iconImage(const std::string& identifier, double side);

// Gives the view an image view that fills it and shows the application's screen, with its status bar, in
// the interface's style and the view's size; dressing again changes the picture.
void dressAsApplication(UIView view, const std::string& identifier);
void dressAsWallpaper(UIView view);
// The home indicator, and the status bar where no application brings its own.
enum class StatusBarParts { all, indicatorOnly };
void dressAsStatusBar(UIView view, StatusBarParts parts, bool white);
void dressAsLockScreen(UIView view);

// Draws those in the windows anew that show the time or the day. Where they are does not change.
void tellTime();
void registerArtwork();

// Whether the top of the screen in front is dark.
bool wantsWhiteStatusBar(const std::string& frontIdentifier);

}  // namespace simulator
