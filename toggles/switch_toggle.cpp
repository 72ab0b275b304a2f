#include "toggles/switch_toggle.hpp"

#include "platform/definition.hpp"
#include "settings/notifications.hpp"
#include "toggles/catalogue.hpp"

namespace vantori {

namespace {

using Switch = VNTSwitchModuleToggleViewController;

constexpr double duration = 0.8;  // seconds

struct SwitchState {
    Strong<NSString> onMessage;
    Strong<NSString> offMessage;
};

// Colour layers only: neither the name nor the glyph changes.
void showFlag(Switch self) {
    self.setCurrentState(self.isOn() ? 1 : 0);
    UIView::animate(duration, block([toggle = retained(self)] { lightLayers(toggle); }));
}

void viewDidLoad(Switch self) {
    super<Switch, "viewDidLoad">(self);
    self.refreshState();
}

void setIsOn(Switch self, bool on) {
    storeIsOn(self, on);
    showFlag(self);
}

// The flag stays, so that every tap posts the same message. Deliberate.
void toggleAction(Switch self, Object) {
    tapLight();
    const bool on = self.isOn();
    const SwitchState& state = stateOf<SwitchState>(self);
    post(on ? state.offMessage : state.onMessage);
    self.setCurrentState(on ? 0 : 1);
}

}  // namespace

void registerSwitchToggle() {
    define<VNTSwitchModuleToggleViewController, VNTDailyToggleViewController, SwitchState>()
        .method<"viewDidLoad", &viewDidLoad>()
        .method<"refreshState", &showFlag>()
        .method<"setIsOn:", &setIsOn>()
        .method<"toggleAction:", &toggleAction>()
        .property<"onMessage", &SwitchState::onMessage>()
        .property<"offMessage", &SwitchState::offMessage>();
}

}  // namespace vantori
