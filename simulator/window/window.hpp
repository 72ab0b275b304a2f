// The phone in a window: the mouse is the finger, keys are its buttons, and its clock follows the
// real one.
#pragma once

#include <ostream>
#include <string>

#include "simulator/live/live_phone.hpp"

namespace simulator::window {

// The keys with what they do, a line each.
std::string keysHelp();

// Until the window is closed. Throws std::runtime_error when there is no display.
int runWindow(const live::LiveOptions& options, std::ostream& output);

}  // namespace simulator::window
