// Names that the phone gives a meaning to. Each function answers what is wrong with a name, and which
// one may have been meant; nothing when it is right.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

std::optional<std::string> mistakeInDevice(std::string_view identifier);
std::optional<std::string> mistakeInSystem(std::string_view version);
std::optional<std::string> mistakeInSetting(std::string_view key);

// The devices with their screens, and the systems.
void printDevices(std::ostream& output);
// The keys of the settings file, each with its default and meaning.
void printSettings(std::ostream& output);

std::vector<std::string> knownDevices();
std::vector<std::string> knownSystems();
std::vector<std::string> knownSettings();
std::vector<std::string> knownBundles();
// Of the process as it is: on a phone that is on, the system's and the extension's.
std::vector<std::string> knownClasses();
std::vector<std::string> knownSelectors(const std::string& className);

// " (is NAME meant?)" when one of the names is close to what was written, else nothing.
std::string meant(std::string_view written, const std::vector<std::string>& names);

}  // namespace simulator
