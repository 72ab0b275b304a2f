#include "simulator/foundation/observers.hpp"

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/definition.hpp"
#include "platform/foundation.hpp"
#include "simulator/runtime/replacement.hpp"

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

// The centre tells nobody how much it holds, so it is written down beside it. An empty name or object is
// one that was not given.
struct Holding {
    std::string name;
    id object;
};
struct Holdings {
    std::mutex lock;  // objects may go on any thread
    std::map<id, std::vector<Holding>> byObserver;
    long count = 0;

    void add(id observer, const Holding& held) {
        const std::lock_guard<std::mutex> locked(lock);
        byObserver[observer].push_back(held);
        ++count;
    }
    void remove(id observer, const Holding& which) {
        const std::lock_guard<std::mutex> locked(lock);
        const auto found = byObserver.find(observer);
        if (found == byObserver.end()) return;
        count -= static_cast<long>(std::erase_if(found->second, [&](const Holding& each) {
            return (which.name.empty() || which.name == each.name) &&
                   (!which.object || which.object == each.object);
        }));
        if (found->second.empty()) byObserver.erase(found);
    }
};
Holdings& holdings() {
    static auto& kept = *new Holdings;
    return kept;
}

bool isDefaultCenter(id center) { return NSNotificationCenter::defaultCenter().get() == center; }

Holding holding(id name, id object) {
    return {name ? platform::NSString(name).utf8() : "", object};
}

void (*systemAddObserver)(id, SEL, id, SEL, id, id) = nullptr;
void (*systemRemoveObserver)(id, SEL, id, id, id) = nullptr;

void addObserver(id self, SEL command, id observer, SEL action, id name, id object) {
    systemAddObserver(self, command, observer, action, name, object);
    if (!isDefaultCenter(self)) return;
    holdings().add(observer, holding(name, object));
    tie(observer);
}

void removeObserver(id self, SEL command, id observer, id name, id object) {
    systemRemoveObserver(self, command, observer, name, object);
    if (isDefaultCenter(self)) holdings().remove(observer, holding(name, object));
}

}  // namespace

void installObservers() {
    if (systemAddObserver) return;
    platform::define<ObserverTie, Object, TieState>();
    systemAddObserver = reinterpret_cast<void (*)(id, SEL, id, SEL, id, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "addObserver:selector:name:object:", reinterpret_cast<IMP>(&addObserver)));
    // What removes an observer as a whole comes here too.
    systemRemoveObserver = reinterpret_cast<void (*)(id, SEL, id, id, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "removeObserver:name:object:", reinterpret_cast<IMP>(&removeObserver)));
}

long registeredObservers() {
    const std::lock_guard<std::mutex> locked(holdings().lock);
    return holdings().count;
}

}  // namespace simulator
