// A plain client: bytes on a socket, and as little of HTTP and WebSocket as talking to the server takes. It
// waits for what it reads, at most ten seconds.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "simulator/serve/server.hpp"

namespace simulator::serve::tests {

class Client {
  public:
    explicit Client(int port);
    ~Client();
    Client(Client&& other) noexcept;
    Client& operator=(Client&&) = delete;

    void send(std::string_view bytes);
    // The status of an answer, 0 when the connection ends first; its body stays to be read.
    int status();
    std::string header(const std::string& name) const;
    std::string body();
    int get(const std::string& path);

    // Asks for the phone's line; the status, 101 when it is there.
    int upgrade(const std::string& path, const std::string& moreHeaders = "");
    void sendText(std::string_view text);
    void sendFrame(unsigned char first, std::string_view payload);

    struct Message {
        int opcode = 0;  // 1 text, 2 binary, 8 closed
        std::string payload;
        int closeStatus() const;
    };
    // The next whole message; nothing when the connection ended without a word.
    std::optional<Message> read();

  private:
    bool fill();
    std::string take(std::size_t count);

    int socket_;
    std::string pending_;
    std::string head_;
};

// Serves while the work is done in another thread.
void serveWhile(Server& server, const std::function<void()>& work);

// Where the server is.
constexpr const char* key = "0123456789abcdef0123456789abcdef";

}  // namespace simulator::serve::tests
