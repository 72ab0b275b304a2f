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

void (*uncountedPost)(id, SEL, id) = nullptr;
void (*uncountedPostName)(id, SEL, id, id, id) = nullptr;

void countPost(id self, SEL command, id notification) {
    count(Object(notification).send<"name", NSString>());
    uncountedPost(self, command, notification);
}

void countPostName(id self, SEL command, id name, id object, id userInfo) {
    count(NSString(name));
    uncountedPostName(self, command, name, object, userInfo);
}

}  // namespace

void installNotificationCounts() {
    if (uncountedPost) return;
    uncountedPost = reinterpret_cast<void (*)(id, SEL, id)>(
        replaceMethod("NSNotificationCenter", MethodKind::instance,
                      "postNotification:", reinterpret_cast<IMP>(&countPost)));
    uncountedPostName = reinterpret_cast<void (*)(id, SEL, id, id, id)>(replaceMethod(
        "NSNotificationCenter", MethodKind::instance,
        "postNotificationName:object:userInfo:", reinterpret_cast<IMP>(&countPostName)));
}

long notificationPosts(std::string_view name) {
    auto found = counts().find(name);
    return found == counts().end() ? 0 : found->second;
}

void clearNotificationPosts() { counts().clear(); }

}  // namespace simulator
