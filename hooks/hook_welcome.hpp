// The welcome pager, once for each new version: the history file lists the versions for which it was
// shown.
#pragma once

#include <string_view>

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// A literal. "debug" shows the pager at every move of the home screen.
extern std::string_view programVersion;

void homeScreenDidMove(System<void()> system, Object self);

// Adds presentUpdateInfo to SpringBoard's home-screen view.
void addPresentUpdateInfo();

}  // namespace vantori
