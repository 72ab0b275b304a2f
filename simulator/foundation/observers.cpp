#include "simulator/foundation/observers.hpp"

#include <unordered_set>

#include "platform/foundation.hpp"
#include "simulator/foundation/replacement.hpp"

namespace simulator {

namespace {

using platform::NSNotificationCenter;

std::unordered_set<id>& observers() {
    static auto& all = *new std::unordered_set<id>;
    return all;
}

void (*systemAdd)(id, SEL, id, SEL, id, id) = nullptr;
void (*systemDealloc)(id, SEL) = nullptr;

void add(id self, SEL command, id observer, SEL action, id name, id object) {
    if (observer) observers().insert(observer);
    systemAdd(self, command, observer, action, name, object);
}

void dealloc(id self, SEL command) {
    if (!observers().empty() && observers().erase(self) > 0) {
        NSNotificationCenter::defaultCenter().send<"removeObserver:">(self);
    }
    systemDealloc(self, command);
}

}  // namespace

void installObservers() {
    if (systemAdd) return;
    systemAdd = reinterpret_cast<void (*)(id, SEL, id, SEL, id, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "addObserver:selector:name:object:", reinterpret_cast<IMP>(&add)));
    systemDealloc = reinterpret_cast<void (*)(id, SEL)>(replaceMethod(
        "NSObject", MethodKind::instance, "dealloc", reinterpret_cast<IMP>(&dealloc)));
}

}  // namespace simulator
