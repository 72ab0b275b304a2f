// The welcome pager, once for each new version: the history file lists the versions for which it was
// shown.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void homeScreenDidMove(System<void()> system, Object self);

// Adds presentUpdateInfo to SpringBoard's home-screen view.
void addPresentUpdateInfo();

}  // namespace vantori
