// Windows: hidden at first, ordered by level, then by when they were shown; one is key.
#pragma once

#include "simulator/uikit/view/view.hpp"

namespace simulator {

// Windows are not kept alive by being listed; the vectors own while they are used.
std::vector<Strong<UIWindow>> allWindows();
// The visible ones.
std::vector<Strong<UIWindow>> windowsBackToFront();
UIWindow keyWindow();
bool isVisible(UIWindow window);

void registerWindow();

}  // namespace simulator
