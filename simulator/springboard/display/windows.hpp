// SpringBoard's windows, from the back: wallpaper, home screen, application scenes, status bar,
// Control Center, lock screen.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

struct Windows {
    Strong<UIWindow> wallpaper;
    Strong<UIWindow> home;
    Strong<UIWindow> scenes;
    Strong<UIWindow> statusBar;
    Strong<UIWindow> controlCenter;
    Strong<UIWindow> coverSheet;  // the lock screen
};

Windows& windows();

// Makes them and fills all but the scenes' one.
void makeWindows();
// Lays them all out for the interface's orientation.
void layWindows();
// Draws anew what depends on the style, the size and the application in front.
void refreshWindows();

void registerWindows();

}  // namespace simulator
