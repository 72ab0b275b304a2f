// What happens in which order: names are noted down as posts are heard and as methods run. Every
// test is a process of its own, so nothing is put back.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/definition.hpp"
#include "platform/foundation.hpp"

namespace vantori::tests {

using namespace platform;

class Order {
  public:
    static void note(std::string event) { events().push_back(std::move(event)); }
    static void forget() { events().clear(); }
    static std::vector<std::string>& events() {
        static std::vector<std::string> all;
        return all;
    }
    // Looks around while a post is being heard.
    static std::function<void()>& look() {
        static std::function<void()> function;
        return function;
    }
};

struct PostListener : Object {
    static constexpr FixedString name{"VNTTestPostListener"};
    using Object::Object;
};

inline void hearPost(PostListener, Object notification) {
    Order::note(notification.send<"name", NSString>().utf8());
    if (Order::look()) Order::look()();
}

// In-process posts. The listener lives as long as the process.
inline void listenTo(std::initializer_list<const char*> names) {
    static bool isDefined = false;
    if (!isDefined) define<PostListener, Object>().method<"heard:", &hearPost>();
    isDefined = true;
    static Strong<PostListener> listener = create<PostListener>();
    for (const char* post : names) {
        NSNotificationCenter::defaultCenter().addObserver(listener, selector<"heard:">(),
                                                          NSString::from(post));
    }
}

// Runs the note before each call of a method without a result, then the method; in that class only.
template <FixedString message, class... A>
struct Spy {
    static inline IMP method = nullptr;
    static inline std::function<void(Object, A...)> before;
    static void run(id self, SEL command, A... arguments) {
        before(Object(self), arguments...);
        reinterpret_cast<void (*)(id, SEL, A...)>(method)(self, command, arguments...);
    }
    static void on(const char* className, std::function<void(Object, A...)> note) {
        Class cls = objc_getClass(className);
        const Method known = class_getInstanceMethod(cls, selector<message>());
        before = std::move(note);
        method = method_getImplementation(known);
        class_replaceMethod(cls, selector<message>(), reinterpret_cast<IMP>(&run),
                            method_getTypeEncoding(known));
    }
};

}  // namespace vantori::tests
