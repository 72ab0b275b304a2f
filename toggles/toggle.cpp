#include "toggles/toggle.hpp"

#include <cmath>

#include "platform/definition.hpp"
#include "settings/notifications.hpp"

namespace vantori {

namespace {

struct ToggleState {
    bool isOn;
    long currentState;
    double maxLight;
    Strong<VNTDailyToggleButton> toggleButton;
    Strong<NSArray> stateString;
    Strong<NSString> currentStateName;
    Strong<Object> module;  // for toggles of a Control Center module; none of ours sets it
};

using Toggle = VNTDailyToggleViewController;

// The off name comes first, though the initialisers name it last.
NSArray statePair(NSString onName, NSString offName) {
    return NSArray::with(offName).adding(onName);
}

// What all initialisers share. `makeButton` comes late: it is the fourth step.
template <class MakeButton>
Toggle initialise(Toggle raw, NSArray names, MakeButton makeButton) {
    auto self = super<Toggle, "init", Toggle>(raw);
    if (!self) return self;
    observe(self, selector<"refreshState">(), local::shouldRefreshState());
    auto& state = stateOf<ToggleState>(self);
    state.maxLight = 0.7;
    state.toggleButton = makeButton();
    state.toggleButton.addTarget(self, selector<"toggleAction:">(), UIControl::touchUpInside);
    if (names) state.stateString = retained(names);
    Strong<VNTDailyToggleView> view = create<VNTDailyToggleView>();
    self.setView(view);
    view.setToggleButton(state.toggleButton);
    self.refreshState();
    return self;
}

Strong<VNTDailyToggleButton> packageButton(NSString path) {
    return create<VNTDailyToggleButton, "initWithFrame:packageContentsPath:">(rect(0, 0, 0, 0),
                                                                              path);
}

Strong<VNTDailyToggleButton> imageButton(UIImage on, UIImage off) {
    return create<VNTDailyToggleButton, "initWithFrame:onImage:offImage:">(rect(0, 0, 0, 0), on,
                                                                           off);
}

Toggle initWithPackage(Toggle raw, NSString path) {
    return initialise(raw, NSArray(), [=] { return packageButton(path); });
}

Toggle initWithPackageAndNames(Toggle raw, NSString path, NSString onName, NSString offName) {
    return initialise(raw, statePair(onName, offName), [=] { return packageButton(path); });
}

Toggle initWithImagesAndNames(Toggle raw, UIImage on, UIImage off, NSString onName,
                              NSString offName) {
    return initialise(raw, statePair(onName, offName), [=] { return imageButton(on, off); });
}

Toggle initWithImage(Toggle raw, UIImage image) {
    return initialise(raw, NSArray(), [=] { return imageButton(image, image); });
}

// The base has nothing to read.
void refreshState(Toggle) {}

void toggleAction(Toggle self, Object) {
    self.setIsOn(!self.isOn());
    tapLight();
}

bool canShowWhileLocked(Toggle) { return true; }

// The view of the current state at full light, the other one dark.
void light(Toggle toggle, UIView on, UIView off) {
    const double most = toggle.maxLight();
    const auto state = static_cast<double>(toggle.currentState());
    on.setAlpha(most * state);
    off.setAlpha(std::abs(most * (state - 1)));
}

}  // namespace

void storeIsOn(Toggle toggle, bool on) {
    if (toggle) stateOf<ToggleState>(toggle).isOn = on;
}

// A toggle without names shows no state.
void showStateName(Toggle toggle) {
    NSArray names = toggle.stateString();
    const auto index = static_cast<unsigned long>(toggle.currentState());
    toggle.setCurrentStateName(index < names.count() ? names.at<NSString>(index) : NSString());
    toggle.toggleButton().updateState(toggle.currentStateName());
}

void lightLayers(Toggle toggle) {
    light(toggle, toggle.toggleButton().onView(), toggle.toggleButton().offView());
}

void lightImages(Toggle toggle) {
    light(toggle, toggle.toggleButton().onImageView(), toggle.toggleButton().offImageView());
}

void tapLight() {
    create<UIImpactFeedbackGenerator, "initWithStyle:">(UIImpactFeedbackGenerator::light)
        .impactOccurred();
}

void registerToggle() {
    registerToggleButton();
    define<VNTDailyToggleViewController, UIViewController, ToggleState>()
        .method<"initWithPackageContentsPath:", &initWithPackage>()
        .method<"initWithPackageContentsPath:onString:offString:", &initWithPackageAndNames>()
        .method<"initWithOnImage:offImage:onString:offString:", &initWithImagesAndNames>()
        .method<"initWithToggleImage:", &initWithImage>()
        .method<"refreshState", &refreshState>()
        .method<"toggleAction:", &toggleAction>()
        .method<"_canShowWhileLocked", &canShowWhileLocked>()
        .property<"isOn", &ToggleState::isOn>()
        .property<"currentState", &ToggleState::currentState>()
        .property<"maxLight", &ToggleState::maxLight>()
        .property<"toggleButton", &ToggleState::toggleButton>()
        .property<"stateString", &ToggleState::stateString>()
        .property<"currentStateName", &ToggleState::currentStateName>()
        .property<"module", &ToggleState::module>();
}

}  // namespace vantori
