// What the SpringBoard toolbar keeps besides what it inherits.
#pragma once

#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

struct SBToolBarState {
    Strong<VNTSBHostWindow> hostWindow;
    Strong<UIBackdropView> backdropView;  // created, never placed in the view tree
    Strong<UIVisualEffectView> visualEffectView;
    Strong<UIView> shadowView;
    CGRect suggestedFrame;
    double suggestedY;
    bool shouldAllowAutoRotate;
    long orientation;  // that it was laid out for last; 0 before the first time
    // A page of its own: the inherited one, for the toolbar behind applications, is another.
    Strong<VNTCCTogglesBarViewController> springBoardModules;
};

}  // namespace vantori
