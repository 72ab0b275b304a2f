// The page of everyday toggles: a row of round toggles, and the two slider panels that slide over
// it, in a strip 100 points high. Built with the toolbar, kept out of its page list.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTDailyToolBarViewController : UIViewController {
    static constexpr FixedString name{"VNTDailyToolBarViewController"};
    using UIViewController::UIViewController;
    UIView toggleContainerView() const { return send<"toggleContainerView", UIView>(); }
    // The toggles of the row; an empty slot holds the null object.
    NSArray toggleControllers() const { return send<"toggleControllers", NSArray>(); }
    void setupDailyToggles() const { send<"setupDailyToggles">(); }
    void layoutDailyToggles() const { send<"layoutDailyToggles">(); }
    void refreshAllToggles() const { send<"refreshAllToggles">(); }
    void setupSliderContainer() const { send<"setupSliderContainer">(); }
};

void registerEverydayPage();

}  // namespace vantori
