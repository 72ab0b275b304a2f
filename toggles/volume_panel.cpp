#include "toggles/volume_panel.hpp"

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

void place(const PanelState& state) {
    const double gap = strip::panelGap(UIScreen::mainScreen().bounds().size.width);
    state.orientationLock.view().setFrame(strip::toggleFrame(gap, 0));
    state.mute.view().setFrame(strip::toggleFrame(gap, 1));
    state.doNotDisturb.view().setFrame(strip::toggleFrame(gap, 2));
    state.slider.setFrame(strip::sliderFrame(gap));
}

void setupSliderView(Panel self) {
    PanelState& state = stateOf<PanelState>(self);
    state.slider = create<VNTVolumeSlider, "initWithFrame:">(rect(0, 0, 0, 0));
    createToggles(state);
    place(state);
    const UIView parts[] = {state.orientationLock.view(), state.mute.view(),
                            state.doNotDisturb.view(), state.slider};
    for (UIView part : parts) self.view().addSubview(part);
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
