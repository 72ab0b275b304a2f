// Screen recording is available always, inside the toolbar and in Control Center alike.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void moduleSetAvailable(System<void(bool)> system, Object self, bool available);
bool moduleAvailable(System<bool()> system, Object self);

}  // namespace vantori
