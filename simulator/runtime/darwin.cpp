#include "simulator/runtime/darwin.hpp"

#include <map>
#include <vector>

#include "platform/core_foundation.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/exports.hpp"
#include "simulator/runtime/history.hpp"

struct CFNotificationCenter {};

namespace simulator {

namespace {

using platform::NSString;

struct Observer {
    const void* observer;
    CFNotificationCallback callback;
    std::string name;
    bool pending;
};

struct Centre {
    CFNotificationCenter identity;
    std::vector<Observer> observers;  // only grows: nothing removes an observer
    std::map<std::string, long, std::less<>> posts;
};

Centre& centre() {
    static auto& kept = *new Centre;
    return kept;
}

void deliver(const std::string& name) {
    NSString text = NSString::from(name.c_str());
    for (std::size_t i = 0; i < centre().observers.size(); ++i) {
        Observer& observer = centre().observers[i];
        if (!observer.pending || observer.name != name) continue;
        observer.pending = false;
        // The callback may add observers, so the reference ends here.
        CFNotificationCallback callback = observer.callback;
        callback(&centre().identity, const_cast<void*>(observer.observer), text.get(), nullptr,
                 nullptr);
    }
}

}  // namespace

void postDarwin(const std::string& name) {
    ++centre().posts[name];
    History::shared().happened(Happening::darwinPosted, name);
    bool heard = false;
    for (Observer& observer : centre().observers) {
        if (observer.name == name && !observer.pending) heard = observer.pending = true;
    }
    if (heard) Clock::shared().post([name] { deliver(name); });
}

long darwinPosts(std::string_view name) {
    auto found = centre().posts.find(name);
    return found == centre().posts.end() ? 0 : found->second;
}

void clearDarwinPosts() { centre().posts.clear(); }

}  // namespace simulator

VANTORI_EXPORT CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter() {
    return &simulator::centre().identity;
}

VANTORI_EXPORT void CFNotificationCenterAddObserver(CFNotificationCenterRef, const void* observer,
                                                    CFNotificationCallback callback,
                                                    CFStringRef name, const void*, long) {
    if (!name || !callback) return;
    platform::NSString text(static_cast<id>(const_cast<void*>(name)));
    simulator::centre().observers.push_back({observer, callback, text.utf8(), false});
}

VANTORI_EXPORT void CFNotificationCenterPostNotification(CFNotificationCenterRef, CFStringRef name,
                                                         const void*, CFDictionaryRef,
                                                         unsigned char) {
    if (!name) return;
    simulator::postDarwin(platform::NSString(static_cast<id>(const_cast<void*>(name))).utf8());
}

VANTORI_EXPORT void CFRelease(CFTypeRef object) {
    platform::Object(static_cast<id>(const_cast<void*>(object))).send<"release">();
}
