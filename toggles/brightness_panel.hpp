// The panel of the brightness slider and its toggles.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTBrightnessSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTBrightnessSliderContainerViewController"};
    using UIViewController::UIViewController;
    void setShouldShowSwitcher(bool shows) const { send<"setShouldShowSwitcher:">(shows); }
};

void registerBrightnessPanel();

}  // namespace vantori
