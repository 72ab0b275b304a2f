#include "simulator/foundation/notification_counts.hpp"

#include <map>
#include <string>

#include "platform/foundation.hpp"
#include "simulator/runtime/history.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::NSString;
using platform::Object;

std::map<std::string, long, std::less<>>& counts() {
    static auto& posts = *new std::map<std::string, long, std::less<>>;
    return posts;
}

void count(NSString name) {
    if (!name) return;
    const std::string text = name.utf8();
    ++counts()[text];
    History::shared().happened(Happening::posted, text);
}

void (*systemPost)(id, SEL, id) = nullptr;
void (*systemPostName)(id, SEL, id, id, id) = nullptr;

void post(id self, SEL command, id notification) {
    count(Object(notification).send<"name", NSString>());
    systemPost(self, command, notification);
}

void postName(id self, SEL command, id name, id object, id userInfo) {
    count(NSString(name));
    systemPostName(self, command, name, object, userInfo);
}

}  // namespace

void installNotificationCounts() {
    if (systemPost) return;
    systemPost = reinterpret_cast<void (*)(id, SEL, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "postNotification:", reinterpret_cast<IMP>(&post)));
    systemPostName = reinterpret_cast<void (*)(id, SEL, id, id, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "postNotificationName:object:userInfo:", reinterpret_cast<IMP>(&postName)));
}

long notificationPosts(std::string_view name) {
    auto found = counts().find(name);
    return found == counts().end() ? 0 : found->second;
}

void clearNotificationPosts() { counts().clear(); }

}  // namespace simulator
