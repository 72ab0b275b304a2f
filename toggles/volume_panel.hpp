// The panel of the volume slider and its toggles.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

struct VNTVolumeSliderContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTVolumeSliderContainerViewController"};
    using UIViewController::UIViewController;
};

void registerVolumePanel();

}  // namespace vantori
