// Loading code of the system by path.
#pragma once

#include <dlfcn.h>

namespace platform {

// Lazily and globally: the mode 9 of iOS. On Linux global is another bit, and 8 means something else.
inline void openLibrary(const char* path) { dlopen(path, RTLD_LAZY | RTLD_GLOBAL); }

}  // namespace platform
