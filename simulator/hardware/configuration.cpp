#include "simulator/hardware/configuration.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

namespace simulator {

namespace {

constexpr std::array<InstalledApplication, 10> applications{{
    {"com.apple.mobilephone", "Phone"},
    {"com.apple.mobilesafari", "Safari"},
    {"com.apple.MobileSMS", "Messages"},
    {"com.apple.Music", "Music"},
    {"com.apple.camera", "Camera"},
    {"com.apple.Preferences", "Settings"},
    {"com.example.notes", "Notes"},
    {"com.example.maps", "Maps"},
    {"com.example.mail", "Mail"},
    {"com.example.photos", "Photos"},
}};

auto find(const std::string& identifier) {
    return std::ranges::find_if(applications, [&](const auto& application) {
        return identifier == application.identifier;
    });
}

}  // namespace

Configuration& configuration() {
    static auto& phone = *new Configuration;
    return phone;
}

bool pullReportsNameTheGesture() {
    int major = 0, minor = 0;
    std::sscanf(configuration().systemVersion.c_str(), "%d.%d", &major, &minor);
    return major > 13 || (major == 13 && minor >= 4);
}

std::span<const InstalledApplication> installedApplications() { return applications; }

bool isInstalled(const std::string& identifier) { return find(identifier) != applications.end(); }

std::string titleOf(const std::string& identifier) {
    auto found = find(identifier);
    return found == applications.end() ? identifier : found->title;
}

}  // namespace simulator
