// The welcome pager: shown once for each new version (hooks/hook_welcome), over its own window or the home
// screen. What it says and where it lies is in welcome_pages.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTUpdateViewController : UIViewController {
    static constexpr FixedString name{"VNTUpdateViewController"};
    using UIViewController::UIViewController;
};

void registerWelcomePager();

}  // namespace vantori
