#include "simulator/foundation/notification_order.hpp"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/foundation.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::NSNotificationCenter;
using platform::NSString;
using platform::Object;

struct NSNotification : Object {
    static constexpr platform::FixedString name{"NSNotification"};
    using Object::Object;
};

// Empty names and objects stand for any. Neither observers nor objects are owned.
struct Registration {
    id observer;
    SEL action;
    platform::Copied<NSString> name;
    id object;
    bool removed = false;
};
using RegistrationRef = std::shared_ptr<Registration>;

// Posts come from any thread.
struct Registrations {
    std::mutex mutex;
    std::vector<RegistrationRef> all;
};

Registrations& registrations() {
    static auto& kept = *new Registrations;
    return kept;
}

bool isDefault(id center) { return NSNotificationCenter::defaultCenter().get() == center; }

bool matches(const Registration& r, NSString name, id object) {
    if (r.name && !(name && NSString(r.name).equals(name))) return false;
    return !r.object || r.object == object;
}

void (*systemAdd)(id, SEL, id, SEL, id, id) = nullptr;
void (*systemRemove)(id, SEL, id, id, id) = nullptr;
void (*systemPost)(id, SEL, id) = nullptr;
void (*systemPostName)(id, SEL, id, id, id) = nullptr;

void add(id self, SEL command, id observer, SEL action, id name, id object) {
    // Wrong arguments raise in the centre underneath.
    if (!isDefault(self) || !observer || !action) {
        return systemAdd(self, command, observer, action, name, object);
    }
    auto fresh = std::make_shared<Registration>(
        Registration{observer, action, platform::Copied<NSString>(NSString(name)), object});
    std::lock_guard lock(registrations().mutex);
    registrations().all.push_back(std::move(fresh));
}

void remove(id self, SEL command, id observer, id name, id object) {
    if (isDefault(self)) {
        std::vector<RegistrationRef> gone;  // their names go outside of the lock
        std::lock_guard lock(registrations().mutex);
        auto& all = registrations().all;
        auto isGone = [&](const RegistrationRef& r) {
            if (observer && r->observer != observer) return false;
            if (name && !(r->name && NSString(r->name).equals(NSString(name)))) return false;
            if (object && r->object != object) return false;
            r->removed = true;
            gone.push_back(r);
            return true;
        };
        std::erase_if(all, isGone);
    }
    systemRemove(self, command, observer, name, object);
}

// Who is taken off while the others are told is not told any more; who comes in waits for the next.
void tell(NSNotification notification) {
    const auto name = notification.send<"name", NSString>();
    const id object = notification.send<"object", Object>().get();
    std::vector<RegistrationRef> told;
    {
        std::lock_guard lock(registrations().mutex);
        for (const RegistrationRef& r : registrations().all) {
            if (matches(*r, name, object)) told.push_back(r);
        }
    }
    for (const RegistrationRef& r : told) {
        {
            std::lock_guard lock(registrations().mutex);
            if (r->removed) continue;
        }
        platform::sendMessage<void>(r->observer, r->action, notification.get());
    }
}

void postInOrder(id self, SEL command, id notification) {
    if (isDefault(self) && notification) tell(NSNotification(notification));
    systemPost(self, command, notification);  // whoever registered before all of this
}

void postNameInOrder(id self, SEL command, id name, id object, id userInfo) {
    if (isDefault(self) && name) {
        tell(platform::sendClass<NSNotification, "notificationWithName:object:userInfo:",
                                 NSNotification>(Object(name), Object(object), Object(userInfo)));
    }
    systemPostName(self, command, name, object, userInfo);
}

template <class Function>
void replaceOne(const char* message, Function*& system, Function* function) {
    system = reinterpret_cast<Function*>(replaceMethod("NSNotificationCenter", MethodKind::instance,
                                                       message, reinterpret_cast<IMP>(function)));
}

}  // namespace

void installNotificationOrder() {
    if (systemAdd) return;
    replaceOne("addObserver:selector:name:object:", systemAdd, &add);
    replaceOne("removeObserver:name:object:", systemRemove, &remove);
    replaceOne("postNotification:", systemPost, &postInOrder);
    replaceOne("postNotificationName:object:userInfo:", systemPostName, &postNameInOrder);
}

}  // namespace simulator
