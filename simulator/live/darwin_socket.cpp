#include "simulator/live/darwin_socket.hpp"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace simulator::live {

namespace {

constexpr const char* socketName = ".vantori-darwin";
constexpr std::size_t longestName = 255;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return number_; }
    int leak() { return std::exchange(number_, -1); }

  private:
    int number_;
};

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

Descriptor openRoot(const std::filesystem::path& root) {
    const int number = open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) fail("cannot open " + root.string());
    return Descriptor(number);
}

Descriptor makeSocket() {
    const int number = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (number < 0) fail("cannot make a socket");
    return Descriptor(number);
}

// An address holds 107 bytes of path, a device root may be deeper: it goes by its descriptor.
sockaddr_un addressIn(const Descriptor& root) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(root.get()) + "/" + socketName;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

// Whether a process has that socket open.
bool isHeard(const sockaddr_un& address) {
    const Descriptor probe = makeSocket();
    return connect(probe.get(), generic(address), sizeof address) == 0;
}

}  // namespace

DarwinListener::DarwinListener(const std::filesystem::path& root) : file_(root / socketName) {
    const Descriptor folder = openRoot(root);
    const sockaddr_un address = addressIn(folder);
    if (isHeard(address))
        throw std::runtime_error("another phone runs with its files in " + root.string());
    unlinkat(folder.get(), socketName, 0);
    Descriptor made = makeSocket();
    // Nobody else may send from the very first moment: the mode comes with the file.
    const mode_t before = umask(0177);
    const int bound = bind(made.get(), generic(address), sizeof address);
    umask(before);
    if (bound != 0) fail("cannot listen in " + root.string());
    socket_ = made.leak();
}

DarwinListener::~DarwinListener() {
    close(socket_);
    std::error_code error;
    std::filesystem::remove(file_, error);
}

std::vector<std::string> DarwinListener::take() {
    std::vector<std::string> names;
    std::array<char, longestName + 1> bytes{};
    for (;;) {
        const ssize_t count = recv(socket_, bytes.data(), bytes.size(), 0);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return names;
        // What is empty or cut off is no name.
        if (count == 0 || static_cast<std::size_t>(count) > longestName) continue;
        names.emplace_back(bytes.data(), static_cast<std::size_t>(count));
    }
}

bool sendDarwin(const std::filesystem::path& root, const std::string& name) {
    if (name.empty() || name.size() > longestName)
        throw std::runtime_error("a notification's name has 1 to 255 bytes");
    const Descriptor folder = openRoot(root);
    const sockaddr_un address = addressIn(folder);
    const Descriptor sender = makeSocket();
    const ssize_t sent =
        sendto(sender.get(), name.data(), name.size(), 0, generic(address), sizeof address);
    if (sent >= 0) return true;
    if (errno == ENOENT || errno == ECONNREFUSED) return false;
    fail("cannot reach the phone in " + root.string());
}

}  // namespace simulator::live
