#include "simulator/services/system_settings.hpp"

#include <array>
#include <utility>
#include <vector>

namespace simulator {

namespace {

constexpr std::pair<std::string_view, Setting> words[]{
    {"orientationlock", Setting::orientationLock},
    {"ringermute", Setting::ringerMute},
    {"lowpower", Setting::lowPower},
    {"donotdisturb", Setting::doNotDisturb},
    {"flashlight", Setting::flashlight},
    {"nightshift", Setting::nightShift},
    {"truetone", Setting::trueTone},
};

struct Settings {
    std::array<bool, std::size(words)> on{};
    bool flashlightAvailable = true;
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
    for (const auto& [name, setting] : words) {
        if (name == word) return setting;
    }
    return std::nullopt;
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

void onSettingChange(std::function<void(Setting)> listener) {
    settings().listeners.push_back(std::move(listener));
}

}  // namespace simulator
