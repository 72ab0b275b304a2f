#include "toggles/brightness_panel.hpp"

#include "core/device_profile.hpp"
#include "platform/definition.hpp"
#include "toggles/brightness_slider.hpp"
#include "toggles/catalogue.hpp"
#include "toggles/strip.hpp"

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
    const NSString moon = "/Library/Application Support/Vantori/nightshift.png"_ns;
    state.nightShift =
        createImageToggle<VNTNightshiftToggleViewController>(moon, moon, "on"_ns, "off"_ns);
    state.appearance = createPackageToggle<VNTAppearanceToggleViewController>(
        "/System/Library/ControlCenter/Bundles/AppearanceModule.bundle/StyleMode.ca"_ns, "light"_ns,
        "dark"_ns);
    state.lowPower = createPackageToggle<VNTLowPowerToggleViewController>(
        "/System/Library/ControlCenter/Bundles/LowPowerModule.bundle/LowPower.ca"_ns, "enabled"_ns,
        "*"_ns);
    state.flashlight = createImageToggle<VNTFlashlightToggleViewController>(
        "/Library/Application Support/Vantori/flashlight_on.png"_ns,
        "/Library/Application Support/Vantori/flashlight_off.png"_ns, "on"_ns, "off"_ns);
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
