// The welcome pager's controller, shown once for each new version.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTUpdateViewController : UIViewController {
    static constexpr FixedString name{"VNTUpdateViewController"};
    using UIViewController::UIViewController;
};

void registerUpdateViewController();

}  // namespace vantori
