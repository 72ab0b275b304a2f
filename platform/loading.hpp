// Loading code of the system by path.
#pragma once

#include <dlfcn.h>

namespace platform {

// Lazily and globally: the mode 9 of iOS. On Linux global is another bit, and 8 means something else.
inline void openLibrary(const char* path) { dlopen(path, RTLD_LAZY | RTLD_GLOBAL); }

}  // namespace platform

#if !defined(__APPLE__)
// The simulated phone's: the libraries of its system are no files of this machine. Null where the phone
// has no such library, or the library no such symbol.
extern "C" void* vantoriSystemSymbol(const char* library, const char* symbol);
#endif

namespace platform {

// The address of what a library of the system exports, without the underscore of C; null when there is
// none. The library is loaded, and stays.
inline void* symbolIn(const char* library, const char* symbol) {
#if defined(__APPLE__)
    void* handle = dlopen(library, RTLD_LAZY | RTLD_GLOBAL);
    return handle ? dlsym(handle, symbol) : nullptr;
#else
    return vantoriSystemSymbol(library, symbol);
#endif
}

}  // namespace platform
