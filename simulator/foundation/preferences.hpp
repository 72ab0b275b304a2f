// The preferences interface: its own copy of a domain's values, which stays as it was until the
// domain is synchronised, whatever happens to the file meanwhile.
#pragma once

#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>
#include "platform/foundation.hpp"

namespace simulator {

// The file of a domain on the phone.
std::string preferencesPath(const std::string& domain);

// Puts a value in the domain's file (takes the key out when there is none) and tells nobody. Throws
// std::invalid_argument when the value is none that a property list holds.
void writePreference(const std::string& domain, const std::string& key,
                     const std::optional<nlohmann::json>& value);

// What the domain's file holds; an empty object when there is none.
nlohmann::json readPreferences(const std::string& domain);

}  // namespace simulator
