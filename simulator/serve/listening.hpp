// The socket on which pages are waited for. It is open for as long as the program runs, whatever becomes
// of the phone: who connects in between waits in the system's queue.
#pragma once

#include <string>

namespace simulator::serve {

class Listening {
  public:
    // A numeric address of this machine, of either family; port 0 is one that is free. Throws
    // std::runtime_error when it cannot be had.
    Listening(const std::string& address, int port);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

    int descriptor() const { return socket_; }
    int port() const { return port_; }
    // As a page's address begins: http://127.0.0.1:40123
    std::string origin() const;

  private:
    std::string address_;
    int socket_ = -1;
    int port_ = 0;
};

}  // namespace simulator::serve
