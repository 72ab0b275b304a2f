// The switches of the phone: what is on, and who is told when one changes. The objects that
// SpringBoard and Control Center know them by are in setting_agents.hpp. All are off at first.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/fixed_string.hpp"

namespace simulator {

enum class Setting {
    orientationLock,
    ringerMute,
    lowPower,
    doNotDisturb,
    flashlight,
    nightShift,
    trueTone,
    count  // of the settings
};

// What the scenario language calls them, in that order: the one place with these words.
inline constexpr platform::FixedString settingWords{
    "orientationlock|ringermute|lowpower|donotdisturb|flashlight|nightshift|truetone"};
static_assert(1 + std::ranges::count(settingWords.view(), '|') ==
              static_cast<std::ptrdiff_t>(Setting::count));

// The same one by one.
inline constexpr auto settingNames = [] {
    std::array<std::string_view, static_cast<std::size_t>(Setting::count)> names;
    std::string_view rest = settingWords.view();
    for (std::string_view& name : names) {
        // Not the view's own find: under the sanitizers g++ 12 takes that for no constant.
        name = {rest.begin(), std::ranges::find(rest, '|')};
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
    return names;
}();

// By its word.
std::optional<Setting> settingNamed(std::string_view word);

bool isOn(Setting setting);
// Whoever wants it. Those who listen are told when it really changed.
void setOn(Setting setting, bool on);

// What the flashlight says of itself: a torch that is on may become unavailable.
bool isFlashlightAvailable();
void setFlashlightAvailable(bool available);

// What Night Shift's service says beside being switched on: it is active unless someone made it rest,
// and it may not answer at all.
bool isNightShiftActive();
void setNightShiftActive(bool active);
bool nightShiftAnswers();
void setNightShiftAnswers(bool answers);

// Listeners stay for the life of the phone. A change of availability counts as one of the flashlight.
void onSettingChange(std::function<void(Setting)> listener);

}  // namespace simulator
