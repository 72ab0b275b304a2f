#include "simulator/serve/listening.hpp"

#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace simulator::serve {

namespace {

struct InfoDeleter {
    void operator()(addrinfo* info) const { freeaddrinfo(info); }
};
using Info = std::unique_ptr<addrinfo, InfoDeleter>;

Info resolved(const std::string& address, int port) {
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    addrinfo* found = nullptr;
    if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0)
        throw std::runtime_error(address +
                                 " is no address to listen at (127.0.0.1, ::1, 0.0.0.0 …)");
    return Info(found);
}

int portOf(int socket) {
    sockaddr_storage bound{};
    socklen_t length = sizeof bound;
    getsockname(socket, reinterpret_cast<sockaddr*>(&bound), &length);
    char service[NI_MAXSERV] = "";
    getnameinfo(reinterpret_cast<sockaddr*>(&bound), length, nullptr, 0, service, sizeof service,
                NI_NUMERICSERV);
    return std::atoi(service);
}

}  // namespace

Listening::Listening(const std::string& address, int port) : address_(address) {
    const Info info = resolved(address, port);
    socket_ = socket(info->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int yes = 1;
    setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    if (bind(socket_, info->ai_addr, info->ai_addrlen) != 0 || listen(socket_, SOMAXCONN) != 0) {
        const std::string why = std::strerror(errno);
        close(socket_);
        throw std::runtime_error("cannot listen at " + address + " port " + std::to_string(port) +
                                 ": " + why);
    }
    port_ = portOf(socket_);
}

Listening::~Listening() { close(socket_); }

std::string Listening::origin() const {
    const bool colons = address_.find(':') != std::string::npos;
    return "http://" + (colons ? "[" + address_ + "]" : address_) + ":" + std::to_string(port_);
}

}  // namespace simulator::serve
