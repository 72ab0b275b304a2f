#include "simulator/serve/requests.hpp"

#include <array>
#include <cmath>

namespace simulator::serve {

namespace {

using nlohmann::json;

constexpr int brokenData = 1007;
constexpr int notUnderstood = 1008;

double finite(const json& object, const char* name) {
    const double number = object.at(name).get<double>();
    if (!std::isfinite(number)) throw json::out_of_range::create(406, name, &object);
    return number;
}

TouchRequest::Phase phaseOf(const json& object) {
    const auto word = object.at("phase").get<std::string>();
    if (word == "down") return TouchRequest::Phase::down;
    if (word == "move") return TouchRequest::Phase::move;
    if (word == "up") return TouchRequest::Phase::up;
    if (word == "cancel") return TouchRequest::Phase::cancel;
    throw json::out_of_range::create(403, "no phase of a touch", &object);
}

Request touch(const json& object) {
    const TouchRequest::Phase phase = phaseOf(object);
    if (phase == TouchRequest::Phase::up || phase == TouchRequest::Phase::cancel)
        return TouchRequest{phase};
    return TouchRequest{phase, finite(object, "x"), finite(object, "y")};
}
Request say(const json& object) { return SayRequest{object.at("line").get<std::string>()}; }
std::optional<bool> flag(const json& object, const char* name) {
    if (!object.contains(name)) return std::nullopt;
    return object.at(name).get<bool>();
}
Request pace(const json& object) {
    return PaceRequest{flag(object, "paused"), flag(object, "slow"),
                       flag(object, "step").value_or(false)};
}
Request look(const json& object) { return LookRequest{finite(object, "scale")}; }
Request seen(const json&) { return SeenRequest{}; }
Request complete(const json& object) {
    return CompleteRequest{object.at("before").get<std::string>(),
                           object.at("word").get<std::string>(), object.at("id")};
}
Request views(const json& object) { return ViewsRequest{object.at("id")}; }
Request layers(const json& object) { return LayersRequest{object.at("id")}; }
Request record(const json& object) {
    return RecordRequest{object.at("on").get<bool>(), object.at("id")};
}
Request journal(const json& object) {
    return JournalRequest{object.at("kinds").get<std::set<std::string>>(),
                          object.value("past", false)};
}
Request settings(const json& object) { return SettingsRequest{object.at("id")}; }
Request start(const json& object) {
    return StartRequest{object.value("device", ""), object.value("system", ""),
                        object.value("scenario", "")};
}

struct Word {
    std::string_view name;
    Request (*read)(const json& object);
};
constexpr std::array<Word, 12> words{{
    {"touch", touch},
    {"say", say},
    {"pace", pace},
    {"look", look},
    {"seen", seen},
    {"complete", complete},
    {"views", views},
    {"layers", layers},
    {"journal", journal},
    {"record", record},
    {"settings", settings},
    {"start", start},
}};

}  // namespace

std::variant<Request, Closing> readRequest(std::string_view message) {
    const json object = json::parse(message, nullptr, false);
    if (object.is_discarded()) return Closing{brokenData, "a message is JSON"};
    try {
        const auto name = object.at("do").get<std::string>();
        for (const Word& word : words)
            if (word.name == name) return word.read(object);
        return Closing{notUnderstood, "there is no such request"};
    } catch (const json::exception& error) {
        return Closing{notUnderstood, error.what()};
    }
}

}  // namespace simulator::serve
