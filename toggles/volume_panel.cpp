#include "toggles/volume_panel.hpp"

#include <array>

#include "platform/definition.hpp"
#include "toggles/strip.hpp"
#include "toggles/toggle_making.hpp"
#include "toggles/volume_slider.hpp"

namespace vantori {

namespace {

using Panel = VNTVolumeSliderContainerViewController;

struct PanelState {
    Strong<VNTMuteToggleViewController> mute;
    Strong<VNTDNDToggleViewController> doNotDisturb;
    Strong<VNTOrientationLockToggleViewController> orientationLock;
    Strong<VNTVolumeSlider> slider;
};

void createToggles(PanelState& state) {
    state.mute = createMuteToggle();
    state.orientationLock = createOrientationLockToggle();
    state.doNotDisturb = createDoNotDisturbToggle();
}

// From the left; the slider stands behind the last.
std::array<UIViewController, 3> row(const PanelState& state) {
    return {state.orientationLock, state.mute, state.doNotDisturb};
}

void place(const PanelState& state) {
    const double width = UIScreen::mainScreen().bounds().size.width;
    const auto toggles = row(state);
    const auto places = strip::Row::withSlider(width, static_cast<double>(toggles.size()));
    double index = 0;
    for (UIViewController toggle : toggles) toggle.view().setFrame(places.toggle(index++));
    state.slider.setFrame(places.slider());
}

void setupSliderView(Panel self) {
    PanelState& state = stateOf<PanelState>(self);
    state.slider = create<VNTVolumeSlider, "initWithFrame:">(rect(0, 0, 0, 0));
    createToggles(state);
    place(state);
    for (UIViewController toggle : row(state)) self.view().addSubview(toggle.view());
    self.view().addSubview(state.slider);
}

void viewDidLoad(Panel self) {
    super<Panel, "viewDidLoad">(self);
    self.setupSliderView();
}

}  // namespace

void registerVolumePanel() {
    define<Panel, UIViewController, PanelState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"setupSliderView", &setupSliderView>()
        .property<"muteVC", &PanelState::mute>()
        .property<"dndVC", &PanelState::doNotDisturb>()
        .property<"orientationVC", &PanelState::orientationLock>()
        .property<"volumeSlider", &PanelState::slider>();
}

}  // namespace vantori
