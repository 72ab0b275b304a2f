#include "toggles/brightness_panel.hpp"

#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "toggles/brightness_slider.hpp"
#include "toggles/strip.hpp"
#include "toggles/toggle_making.hpp"

namespace vantori {

namespace {

using Panel = VNTBrightnessSliderContainerViewController;

struct PanelState {
    Strong<VNTNightshiftToggleViewController> nightShift;
    Strong<VNTAppearanceToggleViewController> appearance;
    Strong<VNTSwitchModuleToggleViewController> switcher;  // never made
    Strong<VNTLowPowerToggleViewController> lowPower;
    Strong<VNTFlashlightToggleViewController> flashlight;
    Strong<VNTTrueToneToggleViewController> trueTone;  // never made
    Strong<VNTBrightnessSlider> slider;
    bool shouldShowSwitcher;
};

void createToggles(PanelState& state) {
    state.nightShift = createNightShiftToggle();
    state.appearance = createAppearanceToggle();
    state.lowPower = createLowPowerToggle();
    state.flashlight = createFlashlightToggle();
    state.flashlight.toggleButton().setOffColor(UIColor::white());
    state.flashlight.toggleButton().setOnColor(UIColor::systemBlue());
}

// Of Night Shift and appearance only one shows: which, the system's version decides. From iOS 13 on
// Night Shift stays where it is first put, invisible under the flashlight; deliberate.
void place(const PanelState& state) {
    const double gap = strip::panelGap(UIScreen::mainScreen().bounds().size.width);
    state.lowPower.view().setFrame(strip::toggleFrame(gap, 0));
    state.flashlight.view().setFrame(strip::toggleFrame(gap, 1));
    state.nightShift.view().setFrame(strip::toggleFrame(gap, 1));
    state.appearance.view().setFrame(strip::toggleFrame(gap, 2));
    if (isSystem13OrLater()) {
        state.nightShift.view().setAlpha(0);
        state.appearance.view().setFrame(strip::toggleFrame(gap, 2));
    } else {
        state.appearance.view().setAlpha(0);
        state.nightShift.view().setFrame(strip::toggleFrame(gap, 2));
    }
    state.slider.setFrame(strip::sliderFrame(gap));
}

void setupSliderView(Panel self) {
    PanelState& state = stateOf<PanelState>(self);
    state.slider = create<VNTBrightnessSlider, "initWithFrame:">(rect(0, 0, 0, 0));
    createToggles(state);
    place(state);
    const UIView parts[] = {state.nightShift.view(), state.appearance.view(), state.lowPower.view(),
                            state.flashlight.view(), state.slider};
    for (UIView part : parts) self.view().addSubview(part);
}

void viewDidLoad(Panel self) {
    super<Panel, "viewDidLoad">(self);
    self.setupSliderView();
}

}  // namespace

void registerBrightnessPanel() {
    define<Panel, UIViewController, PanelState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"setupSliderView", &setupSliderView>()
        .property<"nightshiftVC", &PanelState::nightShift>()
        .property<"sliderAppearanceVC", &PanelState::appearance>()
        .property<"switcherVC", &PanelState::switcher>()
        .property<"lowpowerVC", &PanelState::lowPower>()
        .property<"flashLightVC", &PanelState::flashlight>()
        .property<"truetoneVC", &PanelState::trueTone>()
        .property<"brightnessSlider", &PanelState::slider>()
        .property<"shouldShowSwitcher", &PanelState::shouldShowSwitcher>();
}

}  // namespace vantori
