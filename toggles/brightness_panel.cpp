#include "toggles/brightness_panel.hpp"

#include <iterator>
#include <utility>

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

// Of Night Shift and appearance only one shows, in the last place: which, the system's version decides.
// From iOS 13 on Night Shift stays where it is first put, invisible under the flashlight, and appearance
// is put twice where it stands. Deliberate.
void place(const PanelState& state) {
    struct Place {
        UIViewController toggle;
        double index;
    };
    const Place row[] = {
        {state.lowPower, 0}, {state.flashlight, 1}, {state.nightShift, 1}, {state.appearance, 2}};
    const double last = std::end(row)[-1].index;
    const double width = UIScreen::mainScreen().bounds().size.width;
    const auto places = strip::Row::withSlider(width, last + 1);
    for (const auto& [toggle, index] : row) toggle.view().setFrame(places.toggle(index));

    UIViewController shown = state.appearance, hidden = state.nightShift;
    if (!isSystem13OrLater()) std::swap(shown, hidden);
    hidden.view().setAlpha(0);
    shown.view().setFrame(places.toggle(last));
    state.slider.setFrame(places.slider());
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
