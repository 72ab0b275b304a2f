// What fontconfig makes while Pango looks for fonts, hidden from the leak check: its patterns are
// linked by offsets, which the check cannot follow. To suppress them by name, each process would
// read the symbols of the whole program at its end, which takes longer than most tests.
#ifdef __SANITIZE_ADDRESS__

#include <dlfcn.h>
#include <fontconfig/fontconfig.h>

#include "simulator/runtime/leaks.hpp"

namespace {

template <class Function>
Function* systems(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] FcBool FcInit() {
    simulator::LeaksAllowed kept;
    return systems<decltype(FcInit)>("FcInit")();
}

[[gnu::visibility("default")]] FcPattern* FcFontSetMatch(FcConfig* config, FcFontSet** sets,
                                                         int count, FcPattern* pattern,
                                                         FcResult* result) {
    simulator::LeaksAllowed kept;
    return systems<decltype(FcFontSetMatch)>("FcFontSetMatch")(config, sets, count, pattern,
                                                               result);
}

[[gnu::visibility("default")]] FcFontSet* FcFontSetSort(FcConfig* config, FcFontSet** sets,
                                                        int count, FcPattern* pattern, FcBool trim,
                                                        FcCharSet** characters, FcResult* result) {
    simulator::LeaksAllowed kept;
    return systems<decltype(FcFontSetSort)>("FcFontSetSort")(config, sets, count, pattern, trim,
                                                             characters, result);
}
}

#endif
