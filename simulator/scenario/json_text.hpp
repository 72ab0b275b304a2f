// JSON as a person writes it, as far as a property list can hold it: no null, and no deeper than anyone
// writes. What is wrong is told in words of our own, with the place.
#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <variant>

namespace simulator::scenario {

// Shared, so that who passes a value on needs no more of JSON than its name.
using JsonPointer = std::shared_ptr<const nlohmann::json>;

struct JsonMistake {
    std::size_t offset = 0;  // bytes into the text
    std::string what;
};

std::variant<nlohmann::json, JsonMistake> readJsonText(std::string_view text);

// The value, or throws std::runtime_error with the place in characters from 1.
nlohmann::json jsonOrError(std::string_view text, const std::string& subject);

}  // namespace simulator::scenario
