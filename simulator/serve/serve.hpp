// The phone on a page of a browser. One process listens and stays; the phone runs in one that it starts,
// and starts again when a page wants SpringBoard anew or another phone, or when the phone's process dies.
#pragma once

#include <ostream>
#include <string>

#include "simulator/live/live_phone.hpp"

namespace simulator::serve {

struct ServeOptions {
    live::LiveOptions phone;
    std::string listen = "127.0.0.1";
    int port = 0;  // a free one
};

// Until it is interrupted or terminated. Throws std::runtime_error when nobody can listen there.
int runServe(const ServeOptions& options, std::ostream& output);

}  // namespace simulator::serve
