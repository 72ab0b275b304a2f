#include "simulator/phone/known_methods.hpp"

#include <cstdlib>
#include <vector>

#include "platform/runtime.hpp"
#include "simulator/runtime/missing.hpp"
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
    if (!cls) return "there is no class " + className + meant(className, knownClasses());
    const Class meta = object_getClass(reinterpret_cast<id>(cls));
    const SEL name = sel_registerName(selector.c_str());
    if (class_getInstanceMethod(cls, name) || class_getInstanceMethod(meta, name))
        return std::nullopt;
    return className + " has no method " + selector + meant(selector, knownSelectors(className));
}

}  // namespace simulator
