// View controllers: loading, layout calls, appearance, children, presenting.
#pragma once

#include "simulator/uikit/view/view.hpp"

namespace simulator {

struct ControllerState {
    Strong<UIView> view;
    Copied<NSString> title;
    std::vector<Strong<UIViewController>> children;
    UIViewController parent;  // not owned
    Strong<UIViewController> presented;
    // What a full-screen presentation took out of the window, and where it lay.
    Strong<UIView> covered;
    Strong<UIView> coveredParent;
    std::size_t coveredIndex;
    UIViewController presenting;  // not owned
    CGSize preferredSize;
    long overrideStyle;
    long presentationStyle;
    bool appeared;

    ~ControllerState();
};

// A controller's view is on screen when it is in a visible window: tells the controllers of the view
// and of those below it when that changed.
void appearanceMayHaveChanged(UIView view);

void registerController();

}  // namespace simulator
