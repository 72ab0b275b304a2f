// The switches of the phone: what is on, and who is told when one changes. The objects that
// SpringBoard and Control Center know them by are in setting_agents.hpp. All are off at first.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

namespace simulator {

enum class Setting {
    orientationLock,
    ringerMute,
    lowPower,
    doNotDisturb,
    flashlight,
    nightShift,
    trueTone
};

// By the words of the scenario language.
std::optional<Setting> settingNamed(std::string_view word);

bool isOn(Setting setting);
// Whoever wants it. Those who listen are told when it really changed.
void setOn(Setting setting, bool on);

// What the flashlight says of itself: a torch that is on may become unavailable.
bool isFlashlightAvailable();
void setFlashlightAvailable(bool available);

// Listeners stay for the life of the phone. A change of availability counts as one of the flashlight.
void onSettingChange(std::function<void(Setting)> listener);

}  // namespace simulator
