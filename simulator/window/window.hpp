// The phone in a window: the mouse is the finger, keys are its buttons, and its clock follows the
// real one.
#pragma once

#include <ostream>
#include <string>

#include "simulator/live/live_phone.hpp"

namespace simulator::window {

// The keys with what they do, a line each.
std::string keysHelp();

struct WindowOptions {
    live::LiveOptions phone;
    bool bare = false;  // the screen without the phone around it
};

// Until the window is closed; its status.
int runWindow(const WindowOptions& options, std::ostream& output);

}  // namespace simulator::window
