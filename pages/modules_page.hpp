// The page of Control Center modules: a scroll view for round buttons, one for each module. Nothing
// fills it yet; the operations that would do so are empty.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTCCTogglesBarViewController : UIViewController {
    static constexpr FixedString name{"VNTCCTogglesBarViewController"};
    using UIViewController::UIViewController;
    UIScrollView scrollView() const { return send<"scrollView", UIScrollView>(); }
    // Notes once that the buttons have been asked for.
    void setupButtons() const { send<"setupButtons">(); }
};

void registerModulesPage();

}  // namespace vantori
