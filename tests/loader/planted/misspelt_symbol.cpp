// The mistake: a function of the system that no system has.
#include "platform/log.hpp"

using namespace platform;

extern "C" Class objc_getClas(const char* name);

namespace {

[[gnu::constructor]] void load() {
    if (objc_getClas("NSObject")) log("found"_ns);
}

}  // namespace
