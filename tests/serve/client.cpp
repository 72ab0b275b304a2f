#include "tests/serve/client.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <utility>

namespace simulator::serve::tests {

Client::Client(int port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval patience{10, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    if (connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        ADD_FAILURE() << "nobody listens";
}

Client::~Client() {
    if (socket_ >= 0) close(socket_);
}

Client::Client(Client&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)),
      pending_(std::move(other.pending_)),
      head_(std::move(other.head_)) {}

void Client::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return;  // what was answered before is still there to be read
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

bool Client::fill() {
    char bytes[65536];
    const ssize_t count = recv(socket_, bytes, sizeof bytes, 0);
    if (count <= 0) return false;
    pending_.append(bytes, static_cast<std::size_t>(count));
    return true;
}

std::string Client::take(std::size_t count) {
    while (pending_.size() < count && fill()) {
    }
    std::string bytes = pending_.substr(0, count);
    pending_.erase(0, count);
    return bytes;
}

int Client::status() {
    std::size_t end = 0;
    while ((end = pending_.find("\r\n\r\n")) == std::string::npos)
        if (!fill()) return 0;
    head_ = take(end + 4);
    return head_.starts_with("HTTP/1.1 ") ? std::atoi(head_.c_str() + 9) : 0;
}

std::string Client::header(const std::string& name) const {
    const std::size_t at = head_.find("\r\n" + name + ": ");
    if (at == std::string::npos) return "";
    const std::size_t start = at + name.size() + 4;
    return head_.substr(start, head_.find("\r\n", start) - start);
}

std::string Client::body() { return take(std::stoul("0" + header("content-length"))); }

int Client::get(const std::string& path) {
    send("GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n");
    return status();
}

int Client::upgrade(const std::string& path, const std::string& moreHeaders) {
    send("GET " + path +
         " HTTP/1.1\r\nHost: 127.0.0.1:80\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
         "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n" +
         moreHeaders + "\r\n");
    return status();
}

void Client::sendText(std::string_view text) { sendFrame(0x81, text); }

void Client::sendFrame(unsigned char first, std::string_view payload) {
    std::string frame(1, static_cast<char>(first));
    const auto length = static_cast<std::uint64_t>(payload.size());
    constexpr unsigned char masked = 0x80;
    if (length < 126) {
        frame += static_cast<char>(masked | length);
    } else if (length < 65536) {
        frame += static_cast<char>(masked | 126);
        for (int shift = 8; shift >= 0; shift -= 8)
            frame += static_cast<char>(length >> shift & 255);
    } else {
        frame += static_cast<char>(masked | 127);
        for (int shift = 56; shift >= 0; shift -= 8)
            frame += static_cast<char>(length >> shift & 255);
    }
    frame.append(4, '\0');  // a mask that changes nothing
    frame += payload;
    send(frame);
}

std::optional<Client::Message> Client::read() {
    Message message;
    for (bool whole = false; !whole;) {
        const std::string head = take(2);
        if (head.size() < 2) return std::nullopt;
        const auto first = static_cast<unsigned char>(head[0]);
        auto length = static_cast<std::uint64_t>(head[1] & 127);
        if (length >= 126) {
            const std::string more = take(length == 126 ? 2 : 8);
            length = 0;
            for (const char byte : more) length = length << 8 | static_cast<unsigned char>(byte);
        }
        if ((first & 15) != 0) message.opcode = first & 15;
        message.payload += take(length);
        whole = (first & 128) != 0;
    }
    return message;
}

int Client::Message::closeStatus() const {
    if (opcode != 8 || payload.size() < 2) return 0;
    return static_cast<unsigned char>(payload[0]) << 8 | static_cast<unsigned char>(payload[1]);
}

void serveWhile(Server& server, const std::function<void()>& work) {
    std::atomic<bool> done = false;
    std::thread other([&] {
        work();
        done = true;
    });
    server.every(std::chrono::milliseconds(2), [&] {
        if (done) server.stop();
    });
    server.serve();
    other.join();
}

}  // namespace simulator::serve::tests
