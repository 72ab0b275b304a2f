// Having Control Center open one of its modules. It is prepared first and shows the module a moment
// later; what that takes differs from system to system.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

// The two steps, for one form of Control Center.
struct ModuleExpansion {
    void (*prepare)(NSString module);
    void (*show)(NSString module);
};

// The form that this system has. Where it has none, whatever of the required one there is.
const ModuleExpansion& moduleExpansion();

}  // namespace vantori
