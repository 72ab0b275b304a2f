#include "simulator/serve/served_phone.hpp"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "simulator/foundation/property_list.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/phone/welcome.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/history.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/serve/settings_list.hpp"
#include "simulator/serve/view_list.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator::serve {

namespace {

using nlohmann::json;

constexpr double coarsest = 0.5;  // pixels a point
constexpr int mostUnseen = 2;     // pictures on their way to a page
constexpr std::size_t eventsAtOnce = 200;
// A page that asks and does not read what it is answered is shut out.
constexpr std::size_t mostAnswers = 64;
constexpr int tooMuch = 1013;  // try again later
constexpr auto frameTime = std::chrono::microseconds(16667);

constexpr std::size_t mostPast = 2000;  // as many rows as a page keeps
constexpr std::size_t mostLayers = 400;

struct Kind {
    Happening happening;
    const char* name;
};
constexpr std::array<Kind, 7> kinds{{
    {Happening::called, "operation"},
    {Happening::posted, "notification"},
    {Happening::darwinPosted, "darwin"},
    {Happening::haptic, "haptic"},
    {Happening::launched, "launch"},
    {Happening::launchedSuspended, "launch"},
    {Happening::logged, "log"},
}};

const char* nameOf(Happening happening) {
    return std::ranges::find(kinds, happening, &Kind::happening)->name;
}

std::set<std::string> kindNames() {
    std::set<std::string> names;
    for (const Kind& kind : kinds) names.insert(kind.name);
    return names;
}

// Text of the phone may be no UTF-8: what is not is replaced.
std::string written(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace

ServedPhone::ServedPhone(const live::LiveOptions& options, std::filesystem::path recordings)
    : recordings_(std::move(recordings)), live_(options, false, said_), past_(mostPast) {
    keepPast();
    live_.console().tellBy(
        [this](const std::string& text) { events_.add({{"kind", "said"}, {"text", text}}); });
}

ServedPhone::~ServedPhone() {
    History::shared().unwatch(watching_);
    History::shared().unwatch(keeping_);
}

bool ServedPhone::boot(std::ostream& errors) {
    live_.console().take("boot");
    if (live_.console().status() == 0) return true;
    errors << said_.str();
    return false;
}

bool ServedPhone::boot(const std::string& scenario, std::ostream& errors) {
    replay_.emplace(scenario);
    while (const auto line = replay_->beforeBoot()) say(*line);
    return boot(errors);
}

std::optional<StartRequest> ServedPhone::serve(const ServerOptions& options,
                                               const std::function<bool()>& ended) {
    Server server(options, *this);
    server_ = &server;
    pace_ = live::Pace();
    watch();
    server.every(frameTime, [&] {
        if (ended() || wanted_) return server.stop();
        tick();
    });
    server.serve();
    server_ = nullptr;
    return wanted_;
}

void ServedPhone::joined(ClientId client) {
    Client& guest = clients_[client];
    guest.event = events_.first();
    guest.happening = happenings_.end();
    guest.answers.push_back(written(
        {{"hello",
          {{"devices", knownDevices()}, {"systems", knownSystems()}, {"kinds", kindNames()}}}}));
}

void ServedPhone::left(ClientId client) {
    if (finger_ == client) liftFinger(true);
    clients_.erase(client);
    watch();
}

std::optional<Closing> ServedPhone::heard(ClientId client, std::string_view message) {
    const auto request = readRequest(message);
    if (const auto* closing = std::get_if<Closing>(&request)) return *closing;
    std::visit([&](const auto& each) { take(client, each); }, std::get<Request>(request));
    if (clients_[client].answers.size() > mostAnswers) return Closing{tooMuch, "too many requests"};
    return std::nullopt;
}

std::optional<Outgoing> ServedPhone::next(ClientId client) {
    Client& guest = clients_[client];
    if (!guest.answers.empty()) {
        Outgoing out{false, std::move(guest.answers.front())};
        guest.answers.pop_front();
        return out;
    }
    if (guest.state != state_) {
        guest.state = state_;
        return Outgoing{false, state_};
    }
    if (guest.event < events_.end()) {
        const Events::Part part = events_.from(guest.event, eventsAtOnce);
        guest.event = part.next;
        return Outgoing{false, written({{"events", part.events}, {"lost", part.lost}})};
    }
    if (guest.happening < happenings_.end()) {
        Events::Part part = happenings_.from(guest.happening, eventsAtOnce);
        guest.happening = part.next;
        json wanted = json::array();
        for (json& event : part.events)
            if (guest.kinds.contains(event["kind"])) wanted.push_back(std::move(event));
        if (!wanted.empty() || (part.lost > 0 && !guest.kinds.empty()))
            return Outgoing{false, written({{"happened", wanted}, {"missed", part.lost}})};
    }
    if (guest.scale > 0 && guest.unseen < mostUnseen && guest.frame < rows_.frame()) {
        Outgoing out{true, rows_.message(guest.frame)};
        guest.frame = rows_.frame();
        ++guest.unseen;
        return out;
    }
    return std::nullopt;
}

void ServedPhone::take(ClientId client, const TouchRequest& request) {
    using Phase = TouchRequest::Phase;
    passTime();
    const bool down = request.phase == Phase::down;
    if (down ? finger_.has_value() : finger_ != client) return;
    const ScreenBounds screen = phone().screenBounds();
    const bool inside =
        request.x >= 0 && request.y >= 0 && request.x < screen.width && request.y < screen.height;
    switch (request.phase) {
        case Phase::down:
            if (!inside) return;
            finger_ = client;
            attempt([&] { phone().touchDown(request.x, request.y); });
            break;
        case Phase::move:
            if (!inside) return liftFinger(true);
            attempt([&] { phone().touchMove(request.x, request.y, 0); });
            break;
        default:
            return liftFinger(request.phase == Phase::cancel);
    }
    ++touches_;
    fingerX_ = request.x;
    fingerY_ = request.y;
}

void ServedPhone::liftFinger(bool cancelled) {
    finger_.reset();
    ++touches_;
    attempt([&] { cancelled ? phone().touchCancel() : phone().touchUp(); });
}

void ServedPhone::take(ClientId, const SayRequest& request) {
    passTime();
    say(request.line);
}

void ServedPhone::take(ClientId, const PaceRequest& request) {
    if (request.paused) pace_.setPaused(*request.paused);
    if (request.slow) pace_.setSlow(*request.slow);
    if (request.step) pace_.step();
}

void ServedPhone::take(ClientId client, const LookRequest& request) {
    clients_[client].scale = std::clamp(request.scale, 0.0, configuration().scale);
}

void ServedPhone::take(ClientId client, const SeenRequest&) {
    int& unseen = clients_[client].unseen;
    unseen = std::max(0, unseen - 1);
}

void ServedPhone::take(ClientId client, const CompleteRequest& request) {
    answer(client, request.id, live_.console().complete(request.before, request.word));
}

void ServedPhone::take(ClientId client, const ViewsRequest& request) {
    answer(client, request.id, viewList());
}

void ServedPhone::take(ClientId client, const LayersRequest& request) {
    answer(client, request.id, layerPictures(mostLayers));
}

void ServedPhone::take(ClientId client, const JournalRequest& request) {
    Client& guest = clients_[client];
    guest.kinds = request.kinds;
    guest.happening = happenings_.end();
    watch();
    if (!request.past) return;
    json before = json::array();
    for (json& event : past_.from(past_.first(), mostPast).events)
        if (guest.kinds.contains(event["kind"])) before.push_back(std::move(event));
    guest.answers.push_back(written({{"happened", before}, {"missed", past_.first()}}));
}

// What was recorded is the answer when it ends.
void ServedPhone::take(ClientId client, const RecordRequest& request) {
    const std::filesystem::path file = recordings_ / "recording.scenario";
    std::string text;
    if (request.on && !phone().records()) {
        attempt([&] { phone().start(file); });
    } else if (!request.on && phone().records()) {
        phone().stop();
        text = readFile(file).value_or("");
    }
    answer(client, request.id, text);
}

void ServedPhone::take(ClientId client, const SettingsRequest& request) {
    answer(client, request.id, settingsList());
}

void ServedPhone::take(ClientId, const StartRequest& request) {
    if (!request.device.empty())
        if (const auto mistake = mistakeInDevice(request.device)) return tellError(*mistake);
    if (!request.system.empty())
        if (const auto mistake = mistakeInSystem(request.system)) return tellError(*mistake);
    wanted_ = request;
}

void ServedPhone::answer(ClientId client, const json& id, json answer) {
    clients_[client].answers.push_back(written({{"id", id}, {"answer", std::move(answer)}}));
}

// Of each kind only while a page wants it: a phone that is used runs thousands of operations a second.
void ServedPhone::watch() {
    std::set<Happening> wanted;
    for (const auto& [client, guest] : clients_)
        for (const Kind& kind : kinds)
            if (guest.kinds.contains(kind.name)) wanted.insert(kind.happening);
    History::shared().unwatch(std::exchange(watching_, 0));
    if (wanted.empty()) return;
    watching_ = History::shared().watch(wanted, [this](Happening what, const std::string& line) {
        happenings_.add({{"kind", nameOf(what)}, {"text", line}});
    });
}

void ServedPhone::keepPast() {
    std::set<Happening> rare;
    for (const Kind& kind : kinds) rare.insert(kind.happening);
    rare.erase(Happening::called);
    keeping_ = History::shared().watch(rare, [this](Happening what, const std::string& line) {
        past_.add({{"kind", nameOf(what)}, {"text", line}});
    });
}

void ServedPhone::tick() {
    live_.hearNotifications();
    passTime();
    if (someoneWaitsForAPicture()) draw();
    state_ = state();
    server_->wakeAll();
}

// While a scenario is carried out, only its own statements let time pass: as much as has passed.
void ServedPhone::passTime() {
    for (int left = pace_.frames(); left > 0; --left) {
        if (!replay_) {
            attempt([&] { phone().wait(pace_.frameTime()); });
            continue;
        }
        replay_->allow(pace_.frameTime());
        while (const auto line = replay_->next(Clock::shared().now())) carryOut(*line);
        if (!replay_->isOver()) continue;
        events_.add({{"kind", "said"}, {"text", "The recording has been replayed."}});
        replay_.reset();
    }
}

bool ServedPhone::someoneWaitsForAPicture() const {
    return std::ranges::any_of(clients_, [](const auto& each) {
        return each.second.scale > 0 && each.second.unseen < mostUnseen;
    });
}

double ServedPhone::pixelsPerPoint() const {
    double scale = coarsest;
    for (const auto& [client, guest] : clients_) scale = std::max(scale, guest.scale);
    return scale;
}

void ServedPhone::draw() {
    const rendering::Rows painted = painter_.paint(pixelsPerPoint());
    if (!painted.empty()) rows_.show(painter_.picture(), painted);
}

std::string ServedPhone::state() {
    constexpr long dark = 2;  // UIUserInterfaceStyle
    const ScreenBounds size = phone().screenBounds();
    json state{
        {"width", size.width},
        {"height", size.height},
        {"orientation", activeOrientation()},
        {"locked", isLocked()},
        {"dark", simulator::screen().style == dark},
        {"homeButton", configuration().homeButton},
        {"device", configuration().machine},
        {"system", configuration().systemVersion},
        {"real", configuration().real},
        {"paused", pace_.isPaused()},
        {"slow", pace_.isSlow()},
        {"time", pace_.isPaused() ? json(Clock::shared().now()) : json()},
        {"touches", touches_},
        {"finger", finger_ ? json{fingerX_, fingerY_} : json()},
        {"pages", clients_.size()},
        {"welcome", welcomeIsShown()},
        {"recording", phone().records()},
        {"replaying", replay_.has_value()},
    };
    return written({{"state", std::move(state)}});
}

void ServedPhone::say(const std::string& line) {
    if (line.find('\n') != std::string::npos) return tellError("a statement is one line");
    const std::string text = carryOut(line);
    events_.add({{"kind", "said"}, {"line", line}, {"text", text}});
}

// Answers what the console said to it.
std::string ServedPhone::carryOut(const std::string& line) {
    said_.str("");
    const bool goesOn = live_.console().take(line);
    watch();  // it may have been told to look at something else
    return goesOn ? said_.str() : "the phone goes on; whoever started it ends it\n";
}

void ServedPhone::tellError(const std::string& text) {
    events_.add({{"kind", "error"}, {"text", text}});
}

}  // namespace simulator::serve
