#include "toggles/panels.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

void ignore(Object) {}

struct DailyState {
    Strong<UIView> toggleContainerView;
};

void loadDailyView(VNTDailyToolBarViewController self) {
    super<VNTDailyToolBarViewController, "loadView">(self);
    auto& state = stateOf<DailyState>(self);
    state.toggleContainerView = create<UIView>();
    self.view().addSubview(state.toggleContainerView);
}

struct BrightnessState {
    bool shouldShowSwitcher;
};

}  // namespace

void registerPanels() {
    define<VNTDailyToolBarViewController, UIViewController, DailyState>()
        .method<"loadView", &loadDailyView>()
        .method<"refreshAllToggles", &ignore>()
        .property<"toggleContainerView", &DailyState::toggleContainerView>();

    define<VNTBrightnessSliderContainerViewController, UIViewController, BrightnessState>()
        .property<"shouldShowSwitcher", &BrightnessState::shouldShowSwitcher>();

    define<VNTVolumeSliderContainerViewController, UIViewController>();
}

}  // namespace vantori
