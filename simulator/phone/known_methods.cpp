#include "simulator/phone/known_methods.hpp"

#include <cstdlib>
#include <vector>

#include "platform/runtime.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/runtime/missing.hpp"
#include "simulator/runtime/system_table.hpp"
#include "simulator/scenario/known_names.hpp"

namespace simulator {

namespace {

void addMethods(Class cls, std::vector<std::string>& names) {
    for (; cls; cls = class_getSuperclass(cls)) {
        unsigned count = 0;
        Method* methods = class_copyMethodList(cls, &count);
        for (unsigned i = 0; i < count; ++i)
            names.emplace_back(sel_getName(method_getName(methods[i])));
        std::free(methods);
    }
}

// Classes of a bundle are not there before it is loaded.
bool thisSystemHas(const std::string& className) {
    const auto release = releaseOf(configuration().systemVersion);
    if (!release) return false;
    const auto known = finding(className, Kind::type, "", *release);
    return known && known->found != Found::absent;
}

// The phone may have it under another name, or on another system.
bool anotherSystemHas(Class cls, const std::string& selector) {
    for (; cls; cls = class_getSuperclass(cls)) {
        const char* name = class_getName(cls);
        if (someSystemHas(name, Kind::method, selector) ||
            someSystemHas(name, Kind::classMethod, selector))
            return true;
    }
    return false;
}

// Those that the class has here, and those that it has on other systems.
std::vector<std::string> selectorsAnywhere(const std::string& className) {
    std::vector<std::string> names = knownSelectors(className);
    eachSystemName([&](std::string_view owner, Kind kind, std::string_view name) {
        if (owner == className && (kind == Kind::method || kind == Kind::classMethod))
            names.emplace_back(name);
    });
    return names;
}

}  // namespace

std::vector<std::string> knownClasses() {
    std::vector<Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
    objc_getClassList(classes.data(), static_cast<int>(classes.size()));
    std::vector<std::string> names;
    for (Class cls : classes) names.emplace_back(class_getName(cls));
    return names;
}

std::vector<std::string> knownSelectors(const std::string& className) {
    std::vector<std::string> names;
    const Class cls = objc_getClass(className.c_str());
    if (!cls) return names;
    addMethods(cls, names);
    addMethods(object_getClass(reinterpret_cast<id>(cls)), names);
    return names;
}

std::optional<std::string> mistakeInMethodName(const std::string& className,
                                               const std::string& selector) {
    if (isMissing(className)) return std::nullopt;
    Class cls = objc_getClass(className.c_str());
    if (!cls && thisSystemHas(className)) return std::nullopt;
    if (!cls) return "there is no class " + className + meant(className, knownClasses());
    const Class meta = object_getClass(reinterpret_cast<id>(cls));
    const SEL name = sel_registerName(selector.c_str());
    if (class_getInstanceMethod(cls, name) || class_getInstanceMethod(meta, name) ||
        anotherSystemHas(cls, selector))
        return std::nullopt;
    return className + " has no method " + selector + meant(selector, selectorsAnywhere(className));
}

}  // namespace simulator
