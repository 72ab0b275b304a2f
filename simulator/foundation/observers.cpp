#include "simulator/foundation/observers.hpp"

#include "platform/definition.hpp"
#include "platform/foundation.hpp"
#include "simulator/foundation/replacement.hpp"

namespace simulator {

namespace {

using platform::NSNotificationCenter;
using platform::Object;

// Tied to an observer, it goes with it.
struct ObserverTie : Object {
    static constexpr platform::FixedString name{"SimulatedObserverTie"};
    using Object::Object;
};

struct TieState {
    Object observer;  // not owned: the tie dies while it is still there
    ~TieState() {
        if (observer) NSNotificationCenter::defaultCenter().send<"removeObserver:">(observer);
    }
};

const char tieKey = 0;

void tie(id observer) {
    if (!observer || objc_getAssociatedObject(observer, &tieKey)) return;
    auto fresh = platform::create<ObserverTie>();
    platform::stateOf<TieState>(fresh).observer = Object(observer);
    objc_setAssociatedObject(observer, &tieKey, fresh.get(), platform::associationRetainNonatomic);
}

void (*systemAddObserver)(id, SEL, id, SEL, id, id) = nullptr;

void addObserver(id self, SEL command, id observer, SEL action, id name, id object) {
    systemAddObserver(self, command, observer, action, name, object);
    if (NSNotificationCenter::defaultCenter().get() == self) tie(observer);
}

}  // namespace

void installObservers() {
    if (systemAddObserver) return;
    platform::define<ObserverTie, Object, TieState>();
    systemAddObserver = reinterpret_cast<void (*)(id, SEL, id, SEL, id, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "addObserver:selector:name:object:", reinterpret_cast<IMP>(&addObserver)));
}

}  // namespace simulator
