#include "simulator/springboard/display/setting_effects.hpp"

#include "simulator/services/radios.hpp"
#include "simulator/services/system_settings.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/springboard/display/windows.hpp"

namespace simulator {

namespace {

constexpr rendering::Colour nightShiftGlass{1, 0.85, 0.66, 1};
constexpr rendering::Colour trueToneGlass{1, 0.97, 0.92, 1};

void changed(Setting setting) {
    if (setting == Setting::lowPower) refreshWindows();
    if (setting == Setting::orientationLock && !isOn(setting)) unlockTurn();
}

void addGlass(rendering::Node& root, rendering::Colour colour) {
    rendering::Node glass = rendering::nodeWithFrame("Glass", root.bounds);
    glass.background = colour;
    glass.filtersBehind = true;
    root.children.push_back(std::move(glass));
}

}  // namespace

void followSettings() {
    onSettingChange(&changed);
    onRadioChange(&refreshWindows);
}

void tintScreen(rendering::Node& root) {
    if (isOn(Setting::nightShift)) addGlass(root, nightShiftGlass);
    if (isOn(Setting::trueTone)) addGlass(root, trueToneGlass);
}

}  // namespace simulator
