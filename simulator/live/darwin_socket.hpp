// Darwin notifications between processes: a running phone listens on a datagram socket in its
// device root, and whoever may write there posts by sending it a name. The socket belongs to the
// user alone (mode 0600) and goes with the phone.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace simulator::live {

class DarwinListener {
  public:
    // Takes the place of a socket that a dead phone left. Throws std::runtime_error when another
    // phone listens there already or no socket can be made.
    explicit DarwinListener(const std::filesystem::path& root);
    ~DarwinListener();
    DarwinListener(const DarwinListener&) = delete;
    DarwinListener& operator=(const DarwinListener&) = delete;

    // For poll().
    int descriptor() const { return socket_; }
    // The names that have come in since the last call; never waits.
    std::vector<std::string> take();

  private:
    std::filesystem::path file_;
    int socket_ = -1;
};

// False when no phone listens in that root. Throws std::runtime_error when the name is empty or
// too long, or the socket cannot be used.
bool sendDarwin(const std::filesystem::path& root, const std::string& name);

}  // namespace simulator::live
