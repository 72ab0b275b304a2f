// The pages of toggles and sliders, as the toolbars see them.
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

struct VNTBrightnessSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTBrightnessSliderContainerViewController"};
    using UIViewController::UIViewController;
    void setShouldShowSwitcher(bool shows) const { send<"setShouldShowSwitcher:">(shows); }
};

struct VNTVolumeSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTVolumeSliderContainerViewController"};
    using UIViewController::UIViewController;
};

void registerPanels();

}  // namespace vantori
