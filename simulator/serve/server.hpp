// Pages and what they say and are told, over HTTP and WebSocket; what it is about, the audience knows.
//
// Nothing is answered without the key: as `?key=` in the address of the page, and as the first part of
// the path of all that the page asks for itself. Another origin's page is refused, and so is whatever
// comes when enough is connected. Nothing is queued for a page: it is asked for when the page can take
// it, so that a slow one gets less and holds up nobody.
#pragma once

#include <libwebsockets.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace simulator::serve {

struct PageFile {
    std::string_view name;
    std::string_view type;
    std::string_view text;
};

using ClientId = std::uint64_t;

struct Outgoing {
    bool binary = false;
    std::string bytes;
};

// Why a page is shut out: a status of the WebSocket protocol and a few words.
struct Closing {
    int status = 1008;
    std::string reason;
};

class Audience {
  public:
    virtual ~Audience() = default;
    virtual void joined(ClientId client) = 0;
    // A whole message; what is answered shuts the page out.
    virtual std::optional<Closing> heard(ClientId client, std::string_view message) = 0;
    virtual void left(ClientId client) = 0;
    // What to tell next; nothing when it knows all.
    virtual std::optional<Outgoing> next(ClientId client) = 0;
};

struct ServerOptions {
    int listening = -1;  // not owned
    std::string key;
    std::span<const PageFile> files;  // index.html is the page
    std::size_t mostConnections = 64;
    std::size_t mostPages = 16;
    std::size_t longestMessage = std::size_t{1} << 20;  // bytes
    int patience = 10;                                  // seconds until a request has to be there
};

class Server {
  public:
    // Throws std::runtime_error when it cannot be made.
    Server(const ServerOptions& options, Audience& audience);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Calls the work that often from serve(), which returns after stop(), and throws what the work throws.
    void every(std::chrono::microseconds period, std::function<void()> work);
    void serve();
    void stop() { stopped_ = true; }
    // There is something to tell: to one page, to all.
    void wake(ClientId client);
    void wakeAll();

  private:
    struct Page;
    struct Timer {
        lws_sorted_usec_list_t link{};  // first: it is what the library hands back
        Server* server = nullptr;
    };

    static int callback(lws* connection, lws_callback_reasons reason, void* user, void* in,
                        std::size_t length);
    static void tick(lws_sorted_usec_list_t* link);
    int handle(lws* connection, lws_callback_reasons reason, void* in, std::size_t length);

    void accept();
    void turnAway(int socket);
    bool hasKey(lws* connection, std::string_view path) const;
    int answer(lws* connection, std::string_view path);
    int send(lws* connection, const PageFile& file);
    int sendBody(lws* connection);
    int mayUpgrade(lws* connection);
    void established(lws* connection);
    int receive(lws* connection, std::string_view part);
    int write(lws* connection);
    void closed(lws* connection);

    ServerOptions options_;
    Audience& audience_;
    lws_protocols protocols_[2]{};
    lws_context* context_ = nullptr;
    lws_vhost* host_ = nullptr;
    Timer timer_;
    std::chrono::microseconds period_{};
    std::function<void()> work_;
    std::set<lws*> connections_;
    std::map<lws*, const PageFile*> bodies_;  // still to be sent
    std::map<lws*, Page> pages_;
    std::deque<int> turnedAway_;  // sockets that may still be reading why
    ClientId lastClient_ = 0;
    bool stopped_ = false;
    std::exception_ptr failure_;  // of the work
};

struct Server::Page {
    ClientId client = 0;
    std::string message;  // what has come of it so far
};

}  // namespace simulator::serve
