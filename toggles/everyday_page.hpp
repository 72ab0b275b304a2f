// The page of everyday toggles: built with the toolbar, kept out of its page list.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTDailyToolBarViewController : UIViewController {
    static constexpr FixedString name{"VNTDailyToolBarViewController"};
    using UIViewController::UIViewController;
    UIView toggleContainerView() const { return send<"toggleContainerView", UIView>(); }
    void refreshAllToggles() const { send<"refreshAllToggles">(); }
};

void registerEverydayPage();

}  // namespace vantori
