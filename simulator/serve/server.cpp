#include "simulator/serve/server.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "simulator/serve/key.hpp"

namespace simulator::serve {

namespace {

constexpr const char* noKey =
    "The address of the phone has a key in it, which was printed when it was started.";
constexpr std::string_view tooMany =
    "HTTP/1.1 503 Service Unavailable\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
constexpr std::size_t mostTurnedAway = 64;
constexpr std::size_t longestAddress = 1024;

// A page of this server and nothing from elsewhere, shown in nobody else's frame and kept nowhere.
constexpr std::array<std::pair<const char*, const char*>, 5> headers{{
    {"content-security-policy:",
     "default-src 'self'; img-src 'self' blob: data:; connect-src 'self'; base-uri 'self'; "
     "form-action 'none'; frame-ancestors 'none'"},
    {"cache-control:", "no-store"},
    {"referrer-policy:", "no-referrer"},
    {"x-content-type-options:", "nosniff"},
    {"cross-origin-resource-policy:", "same-origin"},
}};

std::string headerOf(lws* connection, lws_token_indexes token) {
    std::array<char, longestAddress> text{};
    const int length = lws_hdr_copy(connection, text.data(), static_cast<int>(text.size()), token);
    return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : "";
}

bool hasHeader(lws* connection, lws_token_indexes token) {
    return lws_hdr_total_length(connection, token) > 0;
}

// The rest of the path behind /KEY; the whole of it when it does not begin so.
std::string_view behindKey(std::string_view path, std::string_view key) {
    if (path.size() > key.size() + 1 && path[key.size() + 1] == '/' &&
        isKey(path.substr(1, key.size()), key))
        path.remove_prefix(key.size() + 1);
    return path;
}

// A page says where it comes from; a program that is no browser says nothing.
bool fromElsewhere(lws* connection) {
    if (!hasHeader(connection, WSI_TOKEN_ORIGIN)) return false;
    return headerOf(connection, WSI_TOKEN_ORIGIN) !=
           "http://" + headerOf(connection, WSI_TOKEN_HOST);
}

int refuse(lws* connection, unsigned status, const char* why) {
    if (lws_return_http_status(connection, status, why) < 0) return -1;
    return lws_http_transaction_completed(connection) != 0 ? -1 : 0;
}

std::string pageWithKey(const PageFile& file, std::string_view key) {
    // All that the page names lies below its base, which has the key in it.
    std::string text(file.text);
    constexpr std::string_view place = "{{base}}";
    const std::size_t at = text.find(place);
    if (at != std::string::npos) text.replace(at, place.size(), "/" + std::string(key) + "/");
    return text;
}

}  // namespace

Server::Server(const ServerOptions& options, Audience& audience)
    : options_(options), audience_(audience) {
    lws_set_log_level(0, nullptr);  // who connects could fill the terminal
    protocols_[0].name = "vantori";
    protocols_[0].callback = &Server::callback;
    protocols_[0].rx_buffer_size = 16 * 1024;
    lws_context_creation_info info{};
    info.port = CONTEXT_PORT_NO_LISTEN_SERVER;
    info.protocols = protocols_;
    info.user = this;
    info.timeout_secs = static_cast<unsigned>(options.patience);
    info.keepalive_timeout = options.patience;
    info.fd_limit_per_thread = static_cast<unsigned>(options.mostConnections + 8);
    info.max_http_header_pool = static_cast<unsigned short>(options.mostConnections);
    info.options = LWS_SERVER_OPTION_EXPLICIT_VHOSTS | LWS_SERVER_OPTION_VALIDATE_UTF8;
    context_ = lws_create_context(&info);
    if (context_ != nullptr) host_ = lws_create_vhost(context_, &info);
    if (host_ == nullptr) {
        if (context_ != nullptr) lws_context_destroy(context_);
        throw std::runtime_error("no server could be made");
    }
    // The library closes what it adopts.
    lws_sock_file_fd_type descriptor{};
    descriptor.filefd = dup(options.listening);
    if (lws_adopt_descriptor_vhost(host_, LWS_ADOPT_RAW_FILE_DESC, descriptor, protocols_[0].name,
                                   nullptr) == nullptr) {
        lws_context_destroy(context_);
        throw std::runtime_error("nobody can be waited for");
    }
}

Server::~Server() {
    for (const int socket : turnedAway_) close(socket);
    lws_context_destroy(context_);
}

void Server::every(std::chrono::microseconds period, std::function<void()> work) {
    period_ = period;
    work_ = std::move(work);
    timer_.server = this;
    lws_sul_schedule(context_, 0, &timer_.link, &Server::tick, period.count());
}

void Server::tick(lws_sorted_usec_list_t* link) {
    Server& server = *reinterpret_cast<Timer*>(link)->server;
    const auto begun = std::chrono::steady_clock::now();
    try {
        server.work_();
    } catch (...) {
        server.failure_ = std::current_exception();
        return server.stop();
    }
    // In step with real time, but never without a breath for those who want to be heard.
    const auto spent = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - begun);
    const auto rest = std::max(server.period_ - spent, std::chrono::microseconds(500));
    lws_sul_schedule(server.context_, 0, link, &Server::tick, rest.count());
}

void Server::serve() {
    stopped_ = false;
    while (!stopped_ && lws_service(context_, 0) >= 0) {
    }
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Server::wake(ClientId client) {
    for (const auto& [connection, page] : pages_)
        if (page.client == client) lws_callback_on_writable(connection);
}

void Server::wakeAll() {
    for (const auto& [connection, page] : pages_) lws_callback_on_writable(connection);
}

int Server::callback(lws* connection, lws_callback_reasons reason, void*, void* in,
                     std::size_t length) {
    auto* server = static_cast<Server*>(lws_context_user(lws_get_context(connection)));
    if (server == nullptr || server->host_ == nullptr) return 0;
    // Nothing is thrown through the library: whose request fails so is let go.
    try {
        return server->handle(connection, reason, in, length);
    } catch (const std::exception& error) {
        std::cerr << "vantori-simulator: a page is let go: " << error.what() << std::endl;
        return -1;
    }
}

int Server::handle(lws* connection, lws_callback_reasons reason, void* in, std::size_t length) {
    switch (reason) {
        case LWS_CALLBACK_RAW_RX_FILE:
            accept();
            return 0;
        case LWS_CALLBACK_HTTP:
            return answer(connection, {static_cast<const char*>(in), length});
        case LWS_CALLBACK_HTTP_WRITEABLE:
            return sendBody(connection);
        case LWS_CALLBACK_HTTP_CONFIRM_UPGRADE:
            return mayUpgrade(connection);
        case LWS_CALLBACK_ESTABLISHED:
            established(connection);
            return 0;
        case LWS_CALLBACK_RECEIVE:
            return receive(connection, {static_cast<const char*>(in), length});
        case LWS_CALLBACK_SERVER_WRITEABLE:
            return write(connection);
        case LWS_CALLBACK_CLOSED:
            closed(connection);
            return 0;
        case LWS_CALLBACK_WSI_DESTROY:
            closed(connection);
            bodies_.erase(connection);
            connections_.erase(connection);
            return 0;
        default:
            return 0;
    }
}

void Server::accept() {
    for (;;) {
        const int socket =
            accept4(options_.listening, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (socket < 0) return;
        if (connections_.size() >= options_.mostConnections) {
            turnAway(socket);
        } else if (lws* connection = lws_adopt_socket_vhost(host_, socket)) {
            connections_.insert(connection);
        }
    }
}

// Closed at once, what it still sends would take back what it was told.
void Server::turnAway(int socket) {
    ::send(socket, tooMany.data(), tooMany.size(), MSG_NOSIGNAL);
    shutdown(socket, SHUT_WR);
    turnedAway_.push_back(socket);
    if (turnedAway_.size() <= mostTurnedAway) return;
    close(turnedAway_.front());
    turnedAway_.pop_front();
}

bool Server::hasKey(lws* connection, std::string_view path) const {
    if (behindKey(path, options_.key) != path) return true;
    std::array<char, 64> text{};
    const char* offered =
        lws_get_urlarg_by_name(connection, "key=", text.data(), static_cast<int>(text.size()));
    return offered != nullptr && isKey(offered, options_.key);
}

int Server::answer(lws* connection, std::string_view path) {
    if (!hasKey(connection, path)) return refuse(connection, HTTP_STATUS_FORBIDDEN, noKey);
    if (!hasHeader(connection, WSI_TOKEN_GET_URI))
        return refuse(connection, HTTP_STATUS_METHOD_NOT_ALLOWED, "Only looked at.");
    std::string_view name = behindKey(path, options_.key);
    if (name.starts_with('/')) name.remove_prefix(1);
    if (name.empty()) name = "index.html";
    const auto file = std::ranges::find(options_.files, name, &PageFile::name);
    if (file == options_.files.end())
        return refuse(connection, HTTP_STATUS_NOT_FOUND, "There is no such file.");
    return send(connection, *file);
}

int Server::send(lws* connection, const PageFile& file) {
    std::vector<unsigned char> buffer(LWS_PRE + 2048);
    unsigned char* const start = buffer.data() + LWS_PRE;
    unsigned char* end = start;
    unsigned char* const limit = buffer.data() + buffer.size() - 1;
    const std::string text = pageWithKey(file, options_.key);
    if (lws_add_http_common_headers(connection, HTTP_STATUS_OK, std::string(file.type).c_str(),
                                    text.size(), &end, limit) != 0)
        return -1;
    for (const auto& [name, value] : headers) {
        const std::string_view words = value;
        if (lws_add_http_header_by_name(connection, reinterpret_cast<const unsigned char*>(name),
                                        reinterpret_cast<const unsigned char*>(words.data()),
                                        static_cast<int>(words.size()), &end, limit) != 0)
            return -1;
    }
    if (lws_finalize_write_http_header(connection, start, &end, limit) != 0) return -1;
    bodies_[connection] = &file;
    lws_callback_on_writable(connection);
    return 0;
}

int Server::sendBody(lws* connection) {
    const auto found = bodies_.find(connection);
    if (found == bodies_.end()) return 0;
    std::string text = std::string(LWS_PRE, '\0') + pageWithKey(*found->second, options_.key);
    bodies_.erase(found);
    const std::size_t length = text.size() - LWS_PRE;
    auto* bytes = reinterpret_cast<unsigned char*>(text.data()) + LWS_PRE;
    if (lws_write(connection, bytes, length, LWS_WRITE_HTTP_FINAL) < static_cast<int>(length))
        return -1;
    return lws_http_transaction_completed(connection) != 0 ? -1 : 0;
}

// Below zero hangs up, above zero has been answered.
int Server::mayUpgrade(lws* connection) {
    // The library's own answer would come after the connection has gone.
    const auto refused = [&](unsigned status, const char* why) {
        const std::string head = "HTTP/1.1 " + std::to_string(status) + " " + why +
                                 "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
        std::string bytes = std::string(LWS_PRE, '\0') + head;
        lws_write(connection, reinterpret_cast<unsigned char*>(bytes.data()) + LWS_PRE, head.size(),
                  LWS_WRITE_HTTP_HEADERS);
        return -1;
    };
    const std::string path = headerOf(connection, WSI_TOKEN_GET_URI);
    if (!hasKey(connection, path)) return refused(HTTP_STATUS_FORBIDDEN, noKey);
    if (fromElsewhere(connection))
        return refused(HTTP_STATUS_FORBIDDEN, "Only the phone's own page may drive it.");
    if (behindKey(path, options_.key) != "/phone" && path != "/phone")
        return refused(HTTP_STATUS_NOT_FOUND, "There is no such phone.");
    if (pages_.size() >= options_.mostPages)
        return refused(HTTP_STATUS_SERVICE_UNAVAILABLE, "Enough pages are open.");
    return 0;
}

void Server::established(lws* connection) {
    Page& page = pages_[connection];
    page.client = ++lastClient_;
    audience_.joined(page.client);
    lws_callback_on_writable(connection);
}

int Server::receive(lws* connection, std::string_view part) {
    const auto shutOut = [&](int status, std::string reason) {
        reason.resize(
            std::min<std::size_t>(reason.size(), 120));  // a control frame holds 125 bytes
        lws_close_reason(connection, static_cast<lws_close_status>(status),
                         reinterpret_cast<unsigned char*>(reason.data()), reason.size());
        return -1;
    };
    const auto found = pages_.find(connection);
    if (found == pages_.end()) return -1;
    Page& page = found->second;
    if (lws_frame_is_binary(connection) != 0) return shutOut(1003, "a message is text");
    if (page.message.size() + part.size() + lws_remaining_packet_payload(connection) >
        options_.longestMessage)
        return shutOut(1009, "a message is shorter");
    page.message += part;
    if (lws_is_final_fragment(connection) == 0 || lws_remaining_packet_payload(connection) != 0)
        return 0;
    const std::string message = std::exchange(page.message, {});
    if (const auto closing = audience_.heard(page.client, message))
        return shutOut(closing->status, closing->reason);
    lws_callback_on_writable(connection);
    return 0;
}

int Server::write(lws* connection) {
    const auto found = pages_.find(connection);
    if (found == pages_.end()) return -1;
    // What it was told last is still on its way: it is asked again when that has left.
    if (lws_send_pipe_choked(connection) != 0) {
        lws_callback_on_writable(connection);
        return 0;
    }
    const std::optional<Outgoing> out = audience_.next(found->second.client);
    if (!out) return 0;
    std::string bytes = std::string(LWS_PRE, '\0') + out->bytes;
    const std::size_t length = out->bytes.size();
    if (lws_write(connection, reinterpret_cast<unsigned char*>(bytes.data()) + LWS_PRE, length,
                  out->binary ? LWS_WRITE_BINARY : LWS_WRITE_TEXT) < static_cast<int>(length))
        return -1;
    lws_callback_on_writable(connection);
    return 0;
}

void Server::closed(lws* connection) {
    const auto found = pages_.find(connection);
    if (found == pages_.end()) return;
    const ClientId client = found->second.client;
    pages_.erase(found);
    audience_.left(client);
}

}  // namespace simulator::serve
