// What a page asks for: an object with the word of the request under `do`, and its particulars. Anything
// else is broken, and shuts the page out.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>

#include "simulator/serve/server.hpp"

namespace simulator::serve {

struct TouchRequest {
    enum class Phase { down, move, up, cancel };
    Phase phase = Phase::down;
    double x = 0;  // points of the interface
    double y = 0;
};
struct SayRequest {  // a statement, as in a scenario
    std::string line;
};
struct PaceRequest {
    std::optional<bool> paused;
    std::optional<bool> slow;
    bool step = false;
};
struct LookRequest {  // how many pixels of the page a point of the phone takes up
    double scale = 1;
};
struct SeenRequest {};  // a picture has been drawn: the next may come
struct CompleteRequest {
    std::string before;
    std::string word;
    nlohmann::json id;
};
struct ViewsRequest {
    nlohmann::json id;
};
struct LayersRequest {
    nlohmann::json id;
};
struct JournalRequest {  // which kinds of events this page wants to be told of
    std::set<std::string> kinds;
    bool past = false;  // of what was before, too
};
struct RecordRequest {
    bool on = false;
    nlohmann::json id;
};
struct SettingsRequest {  // the pane, with the values that hold
    nlohmann::json id;
};
struct StartRequest {  // SpringBoard anew; on another phone when one is named
    std::string device;
    std::string system;
    std::string scenario;  // to be carried out on a new phone
};

using Request = std::variant<TouchRequest, SayRequest, PaceRequest, LookRequest, SeenRequest,
                             CompleteRequest, ViewsRequest, LayersRequest, JournalRequest,
                             RecordRequest, SettingsRequest, StartRequest>;

std::variant<Request, Closing> readRequest(std::string_view message);

}  // namespace simulator::serve
