// Windows: hidden at first, ordered by level, then by when they were shown or made key and visible;
// one is key. Showing, hiding and a change of the key window are posted.
#pragma once

#include "simulator/uikit/view/view.hpp"

namespace simulator {

// Windows are not kept alive by being listed; the vectors own while they are used.
std::vector<Strong<UIWindow>> allWindows();
// By level, then by when they were shown; the hidden ones too.
std::vector<Strong<UIWindow>> applicationWindows();
// The visible ones of them.
std::vector<Strong<UIWindow>> windowsBackToFront();
UIWindow keyWindow();
bool isVisible(UIWindow window);

void registerWindow();

}  // namespace simulator
