#include "toggles/brightness_panel.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

struct BrightnessState {
    bool shouldShowSwitcher;
};

}  // namespace

void registerBrightnessPanel() {
    define<VNTBrightnessSliderContainerViewController, UIViewController, BrightnessState>()
        .property<"shouldShowSwitcher", &BrightnessState::shouldShowSwitcher>();
}

}  // namespace vantori
