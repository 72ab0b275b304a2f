// What all toggles that are bound to a setting share: how the setting is read and shown, and how it is
// written and shown. A setting is a structure of static members:
//
//     Toggle                  the class of the toggle
//     State                   its state, where it has one
//     duration                of the cross-fade after a write, in seconds
//     fadesImages             where the images fade with the colour layers
//     prepare(toggle)         what a refresh does before it reads
//     read(toggle)            on, off, or nothing: the toggle then stays as it was
//     write(toggle, on)
//     shown(toggle, on)       what a refresh does after the layers, before the glyph
#pragma once

#include "platform/definition.hpp"
#include "toggles/toggle.hpp"

namespace vantori {

// Without an animation.
template <class Setting>
void refreshSetting(typename Setting::Toggle self) {
    if constexpr (requires { Setting::prepare(self); }) Setting::prepare(self);
    const auto read = Setting::read(self);
    if (!read) return;
    const bool on = *read;
    VNTDailyToggleButton button = self.toggleButton();
    self.setCurrentState(on ? 1 : 0);
    button.onView().setAlpha(on ? self.maxLight() : 0);
    button.offView().setAlpha(on ? 0 : self.maxLight());
    if constexpr (requires { Setting::shown(self, on); }) Setting::shown(self, on);
    storeIsOn(self, on);
    showStateName(self);
}

template <class Setting>
void writeSetting(typename Setting::Toggle self, bool on) {
    Setting::write(self, on);
    self.setCurrentState(on ? 1 : 0);
    storeIsOn(self, on);
    showStateName(self);
    UIView::animate(Setting::duration, block([toggle = retained(self)] {
                        lightLayers(toggle);
                        if constexpr (requires { Setting::fadesImages; }) lightImages(toggle);
                    }));
}

template <class Setting>
auto defineSettingClass() {
    using Toggle = typename Setting::Toggle;
    if constexpr (requires { typename Setting::State; }) {
        return define<Toggle, VNTDailyToggleViewController, typename Setting::State>();
    } else {
        return define<Toggle, VNTDailyToggleViewController>();
    }
}

template <class Setting>
auto defineSetting() {
    auto definition = defineSettingClass<Setting>();
    definition.template method<"refreshState", &refreshSetting<Setting>>();
    definition.template method<"setIsOn:", &writeSetting<Setting>>();
    return definition;
}

}  // namespace vantori
