// The windows that carry the toolbar and the welcome pager above SpringBoard's own.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

// Above applications and the system's interface; the welcome pager is above the toolbar.
inline constexpr double toolbarWindowLevel = 1070;
inline constexpr double welcomeWindowLevel = 1999;

// The black view behind the toolbar; a view like any other but for its class.
struct VNTSBShadowView : UIView {
    static constexpr FixedString name{"VNTSBShadowView"};
    using UIView::UIView;
};

// Lets touches through outside the toolbar while the shadow is invisible.
struct VNTSBHostWindow : UIWindow {
    static constexpr FixedString name{"VNTSBHostWindow"};
    using UIWindow::UIWindow;
};

// Shows the welcome pager as soon as it is created with initWithFrame:.
struct VNTUpdateWindow : UIWindow {
    static constexpr FixedString name{"VNTUpdateWindow"};
    using UIWindow::UIWindow;
};

void registerHostWindows();

}  // namespace vantori
