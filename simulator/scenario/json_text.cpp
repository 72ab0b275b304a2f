#include "simulator/scenario/json_text.hpp"

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

namespace simulator::scenario {

std::variant<nlohmann::json, JsonMistake> readJsonText(std::string_view text) {
    using nlohmann::json;
    constexpr int deepest = 200;
    std::optional<std::string> refused;
    const auto check = [&refused](int depth, json::parse_event_t event, json& parsed) {
        if (depth > deepest) refused = "the JSON is nested too deeply";
        if (event == json::parse_event_t::value && parsed.is_null())
            refused = "a property list cannot hold null";
        if (refused) throw std::length_error(*refused);
        return true;
    };
    try {
        return json::parse(text, check);
    } catch (const std::length_error&) {
        return JsonMistake{0, *refused};
    } catch (const json::parse_error& error) {
        return JsonMistake{error.byte == 0 ? 0 : error.byte - 1,
                           "this is no JSON, as true, 3 and \"a text\" are"};
    } catch (const json::exception&) {
        return JsonMistake{0, "the JSON holds a number out of range"};
    }
}

nlohmann::json jsonOrError(std::string_view text, const std::string& subject) {
    auto read = readJsonText(text);
    if (auto* value = std::get_if<nlohmann::json>(&read)) return std::move(*value);
    const auto& mistake = std::get<JsonMistake>(read);
    // A text without quotes is what people write first.
    throw std::runtime_error(subject + ": " + mistake.what + " at letter " +
                             std::to_string(mistake.offset + 1) + " of " + std::string(text) +
                             " (a text needs quotes of its own: '\"text\"')");
}

}  // namespace simulator::scenario
