// The recent applications feed the pages of both toolbars while the settings have not been loaded;
// from then on the dock does (core/hook_dock.hpp).
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

// Passes on whatever the system's implementation leaves as its result, which is nothing on the
// systems that declare it so.
Object recentsValidate(System<Object(Object)> system, Object self, Object layouts);
void recentsSave(System<void()> system, Object self);

}  // namespace vantori
