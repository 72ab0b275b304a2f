// The system log.
#pragma once

#include "platform/foundation.hpp"

extern "C" void NSLog(id format, ...);

namespace platform {

// One line. The text travels as an argument, never as the format.
inline void log(NSString line) { NSLog("%@"_ns.get(), line.get()); }

}  // namespace platform
