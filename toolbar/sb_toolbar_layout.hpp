// How the SpringBoard toolbar lays itself out for the way the interface is turned.
#pragma once

#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

// Frame before it is first shown and height when shown. The test is for the strip (1), while pages are
// stacked only for 3: with any other number the toolbar rises as high as the stack while its pages
// stand side by side. Deliberate.
void suggestPortraitHeight(VNTSBToolBarController self, int direction);

// Upside down and unknown orientations leave the window as it is.
void turnHostWindow(UIWindow window, long orientation);

// The action of layoutForOritations:. Portrait follows the settings; every other orientation gets
// a grid of two by two pages.
void layoutForOrientation(VNTSBToolBarController self, long orientation);

}  // namespace vantori
