// What the phone is before it is switched on: its model, its system, and what the scenario says of
// its parts. Lengths in points, in portrait.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/geometry.hpp"

namespace simulator {

struct Configuration {
    std::string machine = "iPhone10,3";
    std::string systemVersion = "13.3";
    bool real = false;  // it has what real systems of its version have, and no more
    CGSize screen{375, 812};
    double scale = 3;
    bool homeButton = false;
    int dockIcons = 4;
    bool floatingDock = false;
    int connectivityFailures = 0;  // creations of the airplane controller that still yield nil
    CGSize connectivityButton{60, 60};
    std::vector<std::string> recents;  // newest first
    std::string language = "en";
    std::vector<std::string> missingFiles;  // of what the extension's package brings
};

Configuration& configuration();

// Whether the system's reports of a pull name the gesture too, in a fourth part.
bool pullReportsNameTheGesture();

struct InstalledApplication {
    const char* identifier;
    const char* title;
};

// In the order of the home screen; the first ones stand in the dock.
std::span<const InstalledApplication> installedApplications();
bool isInstalled(const std::string& identifier);
std::string titleOf(const std::string& identifier);

}  // namespace simulator
