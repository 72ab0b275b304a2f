#include "simulator/foundation/user_defaults.hpp"

#include "platform/foundation.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::NSString;
using platform::Object;

// GNUstep's name for defaults without a file.
id inMemory(id self) {
    return Object(self).send<"initWithContentsOfFile:", Object>(NSString::from(":INTERNAL:")).get();
}

id init(id self, SEL) { return inMemory(self); }
id initWithUser(id self, SEL, id) { return inMemory(self); }

}  // namespace

void installUserDefaults() {
    replaceMethod("NSUserDefaults", MethodKind::instance, "init", reinterpret_cast<IMP>(&init));
    replaceMethod("NSUserDefaults", MethodKind::instance,
                  "initWithUser:", reinterpret_cast<IMP>(&initWithUser));
}

}  // namespace simulator
