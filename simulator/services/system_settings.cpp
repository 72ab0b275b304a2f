#include "simulator/services/system_settings.hpp"

#include <array>
#include <utility>
#include <vector>

namespace simulator {

namespace {

struct Settings {
    std::array<bool, static_cast<std::size_t>(Setting::count)> on{};
    bool flashlightAvailable = true;
    bool nightShiftActive = true;
    bool nightShiftAnswers = true;
    std::vector<std::function<void(Setting)>> listeners;
};

Settings& settings() {
    static auto& phone = *new Settings;
    return phone;
}

void tell(Setting setting) {
    const auto listeners = settings().listeners;
    for (const auto& listener : listeners) listener(setting);
}

bool& slot(Setting setting) { return settings().on[static_cast<std::size_t>(setting)]; }

}  // namespace

std::optional<Setting> settingNamed(std::string_view word) {
    const auto found = std::ranges::find(settingNames, word);
    if (found == settingNames.end()) return std::nullopt;
    return static_cast<Setting>(found - settingNames.begin());
}

bool isOn(Setting setting) { return slot(setting); }

void setOn(Setting setting, bool on) {
    if (std::exchange(slot(setting), on) != on) tell(setting);
}

bool isFlashlightAvailable() { return settings().flashlightAvailable; }

void setFlashlightAvailable(bool available) {
    if (std::exchange(settings().flashlightAvailable, available) != available) {
        tell(Setting::flashlight);
    }
}

bool isNightShiftActive() { return settings().nightShiftActive; }
void setNightShiftActive(bool active) { settings().nightShiftActive = active; }
bool nightShiftAnswers() { return settings().nightShiftAnswers; }
void setNightShiftAnswers(bool answers) { settings().nightShiftAnswers = answers; }

void onSettingChange(std::function<void(Setting)> listener) {
    settings().listeners.push_back(std::move(listener));
}

}  // namespace simulator
