// The recent applications feed the pages of both toolbars while the settings have not been loaded;
// from then on the dock does (hooks/hook_dock.hpp).
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// Only passes the call on; the systems that have the method declare it without a result.
void recentsValidate(System<void(Object)> system, Object self, Object layouts);
void recentsSave(System<void()> system, Object self);

}  // namespace vantori
