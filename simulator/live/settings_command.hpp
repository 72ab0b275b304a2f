// The settings pane from the outside: reads and writes the settings file in a device root, and
// tells the phone that runs there, as the pane does on a phone.
#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

namespace simulator::live {

// All of these throw std::runtime_error when the root is not there or what is asked for cannot be.

// Puts the JSON value under the key and posts that the settings have changed. Says on `output` when
// no phone runs in that root, so that only the file was written.
void setSetting(const std::filesystem::path& root, const std::string& key, const std::string& json,
                std::ostream& output);
void unsetSetting(const std::filesystem::path& root, const std::string& key, std::ostream& output);

// One `KEY JSON` a line, in order of the keys; or just the value of the key that is asked for.
void getSettings(const std::filesystem::path& root, const std::optional<std::string>& key,
                 std::ostream& output);

}  // namespace simulator::live
