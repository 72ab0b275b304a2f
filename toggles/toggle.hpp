// The base of every round toggle: a controller with an on/off state, the pair of state names and the
// strength of its tint. What it shows is in toggle_button.hpp.
#pragma once

#include "toggles/toggle_button.hpp"

namespace vantori {

struct VNTDailyToggleViewController : UIViewController {
    static constexpr FixedString name{"VNTDailyToggleViewController"};
    using UIViewController::UIViewController;
    bool isOn() const { return send<"isOn", bool>(); }
    void setIsOn(bool on) const { send<"setIsOn:">(on); }
    VNTDailyToggleButton toggleButton() const {
        return send<"toggleButton", VNTDailyToggleButton>();
    }
    // The off name, then the on name.
    NSArray stateString() const { return send<"stateString", NSArray>(); }
    NSString currentStateName() const { return send<"currentStateName", NSString>(); }
    void setCurrentStateName(NSString text) const { send<"setCurrentStateName:">(text); }
    long currentState() const { return send<"currentState", long>(); }
    void setCurrentState(long state) const { send<"setCurrentState:">(state); }
    double maxLight() const { return send<"maxLight", double>(); }
    void refreshState() const { send<"refreshState">(); }
};

// A toggle with a glyph package; on name before off name.
template <std::derived_from<VNTDailyToggleViewController> T>
Strong<T> createPackageToggle(NSString path, NSString onName, NSString offName) {
    return create<T, "initWithPackageContentsPath:onString:offString:">(path, onName, offName);
}

// A toggle with images, read from their paths; on before off.
template <std::derived_from<VNTDailyToggleViewController> T>
Strong<T> createImageToggle(NSString onPath, NSString offPath, NSString onName, NSString offName) {
    return create<T, "initWithOnImage:offImage:onString:offString:">(
        UIImage::named(onPath), UIImage::named(offPath), onName, offName);
}

// The steps of a repaint, for the toggles that override how the state is read and written.

// The flag alone: subclasses override the setter.
void storeIsOn(VNTDailyToggleViewController toggle, bool on);
// The name that the current state has, and the glyph for it.
void showStateName(VNTDailyToggleViewController toggle);
// The alphas of the two colour layers for the current state.
void lightLayers(VNTDailyToggleViewController toggle);
// The same alphas for the two images, where the button has them.
void lightImages(VNTDailyToggleViewController toggle);
// One light impact, from a generator made for it.
void tapLight();

void registerToggle();

}  // namespace vantori
