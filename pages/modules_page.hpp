// The page of Control Center modules. It lays itself out in a view of one screen width by 100
// points, which the toolbar places and shows or hides by alpha.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTCCTogglesBarViewController : UIViewController {
    static constexpr FixedString name{"VNTCCTogglesBarViewController"};
    using UIViewController::UIViewController;
    UIScrollView scrollView() const { return send<"scrollView", UIScrollView>(); }
    void setupButtons() const { send<"setupButtons">(); }
};

void registerModulesPage();

}  // namespace vantori
