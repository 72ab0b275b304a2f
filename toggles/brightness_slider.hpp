// The slider of the display's brightness.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

struct VNTBrightnessSlider : VNTSlider {
    static constexpr FixedString name{"VNTBrightnessSlider"};
    using VNTSlider::VNTSlider;
};

void registerBrightnessSlider();

}  // namespace vantori
