// What all toggles that are bound to a setting share: how the setting is read and shown, and how it is
// written and shown. A setting is a structure of static members:
//
//     Toggle                  the class of the toggle
//     State                   its state; the one member that may be left out
//     duration                of the cross-fade after a write, in seconds
//     fadesImages             whether the images fade with the colour layers
//     prepare(toggle)         what a refresh does before it reads
//     read(toggle)            on, off, or nothing: the toggle then stays as it was
//     write(toggle, on)
//     shown(toggle, on)       what a refresh does after the layers, before the glyph
#pragma once

#include <concepts>
#include <optional>

#include "platform/definition.hpp"
#include "toggles/toggle.hpp"

namespace vantori {

template <class T>
concept ToggleSetting = requires(typename T::Toggle toggle, bool on) {
    { T::duration } -> std::convertible_to<double>;
    { T::fadesImages } -> std::convertible_to<bool>;
    T::prepare(toggle);
    { T::read(toggle) } -> std::same_as<std::optional<bool>>;
    T::write(toggle, on);
    T::shown(toggle, on);
};

// Without an animation.
template <ToggleSetting Setting>
void refreshSetting(typename Setting::Toggle self) {
    Setting::prepare(self);
    const std::optional<bool> read = Setting::read(self);
    if (!read) return;
    const bool on = *read;
    VNTDailyToggleButton button = self.toggleButton();
    self.setCurrentState(on ? 1 : 0);
    button.onView().setAlpha(on ? self.maxLight() : 0);
    button.offView().setAlpha(on ? 0 : self.maxLight());
    Setting::shown(self, on);
    storeIsOn(self, on);
    showStateName(self);
}

template <ToggleSetting Setting>
void writeSetting(typename Setting::Toggle self, bool on) {
    Setting::write(self, on);
    self.setCurrentState(on ? 1 : 0);
    storeIsOn(self, on);
    showStateName(self);
    UIView::animate(Setting::duration, block([toggle = retained(self)] {
                        lightLayers(toggle);
                        if constexpr (Setting::fadesImages) lightImages(toggle);
                    }));
}

template <ToggleSetting Setting>
auto defineSettingClass() {
    using Toggle = typename Setting::Toggle;
    if constexpr (requires { typename Setting::State; }) {
        return define<Toggle, VNTDailyToggleViewController, typename Setting::State>();
    } else {
        return define<Toggle, VNTDailyToggleViewController>();
    }
}

template <ToggleSetting Setting>
auto defineSetting() {
    auto definition = defineSettingClass<Setting>();
    definition.template method<"refreshState", &refreshSetting<Setting>>();
    definition.template method<"setIsOn:", &writeSetting<Setting>>();
    return definition;
}

}  // namespace vantori
