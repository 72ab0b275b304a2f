// What the phone knows by name: devices, systems, keys of the settings file.
#include "simulator/scenario/known_names.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iomanip>
#include <utility>

#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/device_table.hpp"
#include "simulator/runtime/system_table.hpp"

namespace simulator {

namespace {

struct LibrarySetting {
    std::string_view key;
    std::string_view whenAbsent;
    std::string_view meaning;
};

constexpr LibrarySetting settings[]{
    {"enabled", "true", "the toolbar as a whole; read when SpringBoard starts"},
    {"replaceCC", "false", "pulls for Control Center bring the toolbar; read at the start"},
    {"reachability", "false", "the toolbar comes with Reachability; read at the start"},
    {"layoutDirection", "3", "3 stacks the pages, another lays them side by side"},
    {"noCornerRadius", "false", "an application that is lifted keeps square corners"},
    {"tapToOpen", "true", "read, and without effect"},
    {"alwaysSpringBoardStyle", "true", "in front of applications, too, the home screen's toolbar"},
    {"leftGestureEnabled", "true", "pulls from the left of the bottom edge"},
    {"middleGestureEnabled", "false", "pulls from the middle of the bottom edge"},
    {"rightGestureEnabled", "false", "pulls from the right of the bottom edge"},
    {"hideGrabber", "false", "the grabber on the toolbar cannot be seen"},
    {"gestureLocation", "0", "read, and without effect"},
    {"connectivityBar", "none", "written by the settings pane, and without effect"},
    {"musicBar", "none", "the same"},
    {"brightnessBar", "none", "the same"},
    {"volumeBar", "none", "the same"},
    {"appsBar", "none", "the same"},
    {"dailyBar", "none", "the same"},
};

// 0 for what is not there.
std::pair<int, int> numbers(const std::string& version) {
    int major = 0, minor = 0;
    std::sscanf(version.c_str(), "%d.%d", &major, &minor);
    return {major, minor};
}

// The versions of one major one in a row, parted by blanks.
std::string inRows(const std::vector<std::string>& systems) {
    std::string text;
    for (const std::string& system : systems) {
        const bool first = system.ends_with(".0");
        text += (first && !text.empty() ? "\n  " : text.empty() ? "  " : " ") + system;
    }
    return text;
}

}  // namespace

std::vector<std::string> knownDevices() {
    std::vector<std::string> names;
    for (const DeviceModel& model : deviceModels()) names.emplace_back(model.identifier);
    return names;
}

std::vector<std::string> knownSystems() {
    std::vector<std::string> names;
    eachRelease([&](int release) { names.push_back(versionOf(release)); });
    return names;
}

std::vector<std::string> knownSettings() {
    std::vector<std::string> names;
    for (const LibrarySetting& setting : settings) names.emplace_back(setting.key);
    return names;
}

std::vector<std::string> knownBundles() {
    std::vector<std::string> names;
    for (const InstalledApplication& each : installedApplications())
        names.emplace_back(each.identifier);
    return names;
}

std::optional<std::string> mistakeInDevice(std::string_view identifier) {
    const std::vector<std::string> names = knownDevices();
    if (std::ranges::find(names, identifier) != names.end()) return std::nullopt;
    const std::string guess = meant(identifier, names);
    return "there is no device '" + std::string(identifier) + "'" +
           (guess.empty() ? " (`vantori-simulator devices` lists them)" : guess);
}

std::optional<std::string> mistakeInSystem(std::string_view version) {
    const std::vector<std::string> names = knownSystems();
    const auto asked = numbers(std::string(version));
    // Between the oldest and the newest, also where there was no such release.
    if (asked >= numbers(names.front()) && asked <= numbers(names.back())) return std::nullopt;
    return "there is no system " + std::string(version) + ": they are " + names.front() + " to " +
           names.back();
}

std::optional<std::string> mistakeInSetting(std::string_view key) {
    const std::vector<std::string> names = knownSettings();
    if (std::ranges::find(names, key) != names.end()) return std::nullopt;
    const std::string guess = meant(key, names);
    return "no setting is called '" + std::string(key) + "'" +
           (guess.empty() ? " (`vantori-simulator settings --help` lists them)" : guess);
}

void printDevices(std::ostream& output) {
    output << "Devices, with their screens in points:\n";
    for (const DeviceModel& model : deviceModels()) {
        output << "  " << std::left << std::setw(12) << model.identifier << std::right
               << std::setw(3) << model.width << " x " << std::setw(3) << model.height << " at "
               << model.scale << (model.homeButton ? ", home button" : "") << '\n';
    }
    output << "Systems:\n" << inRows(knownSystems()) << '\n';
}

void printSettings(std::ostream& output) {
    output << "Keys of the settings file:\n";
    for (const LibrarySetting& setting : settings) {
        output << "  " << std::left << std::setw(24) << setting.key << std::setw(7)
               << setting.whenAbsent << setting.meaning << '\n';
    }
}

}  // namespace simulator
