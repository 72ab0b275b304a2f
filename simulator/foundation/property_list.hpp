// Property lists: from JSON, and from files that may hold anything. libplist reads them: GNUstep's own
// reader can be brought to read past the end, and to end the process.
#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation.hpp"

namespace simulator {

enum class PropertyListFormat : unsigned long {
    xml = 100,
    binary = 200
};  // the platform's numbers

// Booleans, integers, reals, strings, lists and dictionaries. Throws std::invalid_argument for
// null, which no property list holds.
platform::Object propertyListObject(const nlohmann::json& value);

// The way back. Dates and data, which JSON lacks, become the text that describes them.
nlohmann::json propertyListJson(platform::Object value);

// Strings, numbers, dates, data, and arrays and dictionaries of these by strings.
bool isPropertyList(platform::Object value);
std::string encodePropertyList(platform::Object root, PropertyListFormat format);

// The root object (autoreleased); empty when the bytes are no property list, or too large (1 MiB, or
// 100,000 objects) or too deep (200) for one that a phone keeps.
platform::Object decodePropertyList(std::string_view bytes);

// The bytes of a file of the host; nothing when it cannot be read or is longer than the limit.
std::optional<std::string> readFile(const std::filesystem::path& path,
                                    std::size_t limit = std::size_t{64} << 20);
bool writeFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace simulator
