// The hook table: what of SpringBoard is taken over, in the order of installation.
#pragma once

#include <span>

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

std::span<const HookRow> welcomeHooks();        // installed whenever the library is enabled
std::span<const HookRow> springBoardHooks();    // once the Control Center frameworks are there
std::span<const HookRow> controlCenterHooks();  // when the Control Center gestures are wanted

void install(std::span<const HookRow> rows);

}  // namespace vantori
