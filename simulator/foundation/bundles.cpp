#include "simulator/foundation/bundles.hpp"

#include <map>
#include <set>

#include "platform/foundation.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/runtime/replacement.hpp"
#include "simulator/runtime/stand_in.hpp"

namespace simulator {

namespace {

using platform::NSBundle;
using platform::NSString;
using platform::Object;

// Bundles are made once for each path and live as long as the process, as on the platform.
struct SystemBundle : NSBundle {
    static constexpr platform::FixedString name{"SystemBundle"};
    using NSBundle::NSBundle;
};

struct State {
    platform::Copied<NSString> path;
    bool loaded;
};

struct Bundles {
    std::map<std::string, SystemBundle> made;
    std::set<std::string> missing;
    std::map<std::string, std::function<void()>> bringers;
};

Bundles& bundles() {
    static auto& kept = *new Bundles;
    return kept;
}

std::string withoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

SystemBundle systemBundle(const std::string& path) {
    SystemBundle& bundle = bundles().made[path];
    if (!bundle) {
        bundle = platform::sendClass<SystemBundle, "alloc", SystemBundle>();
        platform::stateOf<State>(bundle).path =
            platform::Copied<NSString>(NSString::from(path.c_str()));
    }
    return bundle;
}

bool bring(SystemBundle bundle) {
    State& state = platform::stateOf<State>(bundle);
    std::string path = state.path.utf8();
    if (bundles().missing.contains(path)) return false;
    if (!std::exchange(state.loaded, true)) {
        if (auto found = bundles().bringers.find(path); found != bundles().bringers.end()) {
            found->second();
        }
    }
    return true;
}

bool load(SystemBundle self) {
    // Whoever looks for what NSBundle did need not know of the class that does it here.
    Journal::record(objc_getClass("NSBundle"), self.get(), sel_registerName("load"));
    return bring(self);
}

NSString bundlePath(SystemBundle self) { return platform::stateOf<State>(self).path; }

bool isLoaded(SystemBundle self) { return platform::stateOf<State>(self).loaded; }

id (*systemBundleWithPath)(id, SEL, id) = nullptr;

id bundleWithPath(id self, SEL command, id path) {
    const char* text = path ? NSString(path).utf8() : nullptr;
    if (!text) return nullptr;
    if (std::string_view(text).starts_with("/System/")) {
        Journal::record(object_getClass(self), self, command, path);
        return systemBundle(withoutTrailingSlash(text)).get();
    }
    std::string mapped = DeviceRoot::shared().map(text);
    return systemBundleWithPath(self, command, NSString::from(mapped.c_str()).get());
}

}  // namespace

void installBundles() {
    if (systemBundleWithPath) return;
    standIn<SystemBundle, NSBundle, State>()
        .method<"load", &load>()
        .method<"isLoaded", &isLoaded>()
        .method<"bundlePath", &bundlePath>();
    systemBundleWithPath = reinterpret_cast<id (*)(id, SEL, id)>(
        replaceMethod("NSBundle", MethodKind::onClass,
                      "bundleWithPath:", reinterpret_cast<IMP>(&bundleWithPath)));
}

void setMissingBundle(const std::string& path) {
    bundles().missing.insert(withoutTrailingSlash(path));
}

bool isMissingBundle(const std::string& path) {
    return bundles().missing.contains(withoutTrailingSlash(path));
}

bool bringBundle(const std::string& path) {
    return bring(systemBundle(withoutTrailingSlash(path)));
}

void onBundleLoad(const std::string& path, std::function<void()> bringClasses) {
    bundles().bringers[withoutTrailingSlash(path)] = std::move(bringClasses);
}

}  // namespace simulator
