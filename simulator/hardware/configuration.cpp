#include "simulator/hardware/configuration.hpp"

#include <algorithm>
#include <array>

#include "simulator/runtime/system_table.hpp"

namespace simulator {

namespace {

constexpr int latestRelease = 1408;

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

// On a phone of any kind, for it pulls as its version reports them; later systems than those known do as
// the latest.
bool pullReportsNameTheGesture() {
    const int release = releaseOf(configuration().systemVersion).value_or(latestRelease);
    const auto known =
        finding("SBFluidSwitcherGestureManager", Kind::method,
                "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:", release);
    return known && known->found != Found::absent;
}

std::span<const InstalledApplication> installedApplications() { return applications; }

bool isInstalled(const std::string& identifier) { return find(identifier) != applications.end(); }

std::string titleOf(const std::string& identifier) {
    auto found = find(identifier);
    return found == applications.end() ? identifier : found->title;
}

}  // namespace simulator
