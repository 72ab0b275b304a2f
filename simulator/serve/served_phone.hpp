// One phone for all pages: it goes on in real time whatever they do, takes their requests in the order in
// which they come, and shows each of them the same.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <sstream>
#include <string>

#include "simulator/live/live_phone.hpp"
#include "simulator/live/pace.hpp"
#include "simulator/phone/screen_picture.hpp"
#include "simulator/runtime/history.hpp"
#include "simulator/serve/events.hpp"
#include "simulator/serve/replay.hpp"
#include "simulator/serve/requests.hpp"
#include "simulator/serve/screen_rows.hpp"
#include "simulator/serve/server.hpp"

namespace simulator::serve {

class ServedPhone final : public Audience {
  public:
    // Throws std::runtime_error for options that do not hold.
    ServedPhone(const live::LiveOptions& options, std::filesystem::path recordings);
    ~ServedPhone();
    ServedPhone(const ServedPhone&) = delete;
    ServedPhone& operator=(const ServedPhone&) = delete;

    // False when it did not boot; `errors` is told why.
    bool boot(std::ostream& errors);
    // Boots it as the scenario says, whose other statements follow while it serves, in real time.
    bool boot(const std::string& scenario, std::ostream& errors);
    // Until a page wants the phone started anew (which one, then), or `ended` says so.
    std::optional<StartRequest> serve(const ServerOptions& options,
                                      const std::function<bool()>& ended);

    void joined(ClientId client) override;
    std::optional<Closing> heard(ClientId client, std::string_view message) override;
    void left(ClientId client) override;
    std::optional<Outgoing> next(ClientId client) override;

  private:
    struct Client {
        double scale = 0;          // pixels of its page for a point; 0: it shows no picture
        std::uint32_t frame = 0;   // the latest it was sent
        int unseen = 0;            // pictures it was sent and has not drawn yet
        Events::Number event = 0;  // the next to be told
        Events::Number happening = 0;
        std::set<std::string> kinds;  // of happenings that it wants to be told of
        std::string state;            // as it was told
        std::deque<std::string> answers;
    };

    void take(ClientId client, const TouchRequest& request);
    void take(ClientId client, const SayRequest& request);
    void take(ClientId client, const PaceRequest& request);
    void take(ClientId client, const LookRequest& request);
    void take(ClientId client, const SeenRequest& request);
    void take(ClientId client, const CompleteRequest& request);
    void take(ClientId client, const ViewsRequest& request);
    void take(ClientId client, const LayersRequest& request);
    void take(ClientId client, const JournalRequest& request);
    void take(ClientId client, const RecordRequest& request);
    void take(ClientId client, const SettingsRequest& request);
    void take(ClientId client, const StartRequest& request);

    scenario::RecordingPhone& phone() { return live_.console().phone(); }
    void answer(ClientId client, const nlohmann::json& id, nlohmann::json answer);
    void watch();
    void keepPast();
    void liftFinger(bool cancelled);
    void tick();
    void passTime();
    void draw();
    bool someoneWaitsForAPicture() const;
    double pixelsPerPoint() const;
    std::string state();
    void say(const std::string& line);
    std::string carryOut(const std::string& line);
    void tellError(const std::string& text);

    // What the phone refuses is told; it stays as it was.
    template <class Work>
    void attempt(Work work) {
        try {
            work();
        } catch (const PhoneError& error) {
            tellError(error.what());
        }
    }

    std::filesystem::path recordings_;
    std::ostringstream said_;  // by the console
    live::LivePhone live_;
    live::Pace pace_;
    ScreenPainter painter_;
    ScreenRows rows_;
    Events events_;      // what was said and went wrong
    Events happenings_;  // the journal, of the kinds that some page wants
    Events past_;        // the same from the start, of all kinds that do not come by the thousand
    History::Ticket watching_ = 0;
    History::Ticket keeping_ = 0;
    std::optional<Replay> replay_;
    std::map<ClientId, Client> clients_;
    std::string state_;
    Server* server_ = nullptr;  // while it serves

    std::optional<ClientId> finger_;  // whose finger is down
    double fingerX_ = 0;
    double fingerY_ = 0;
    unsigned long touches_ = 0;  // that the phone was given
    std::optional<StartRequest> wanted_;
};

}  // namespace simulator::serve
