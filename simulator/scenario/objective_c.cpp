// Foundation through the runtime's C functions: see the header.
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

constexpr unsigned long utf8 = 4;  // NSUTF8StringEncoding

}  // namespace

id classNamed(const char* name) { return reinterpret_cast<id>(objc_getClass(name)); }

bool isClass(id object) {
    return object != nullptr && class_isMetaClass(object_getClass(object)) != 0;
}

bool isKindOf(id object, const char* className) {
    if (object == nullptr || isClass(object)) return false;
    const auto wanted = reinterpret_cast<Class>(objc_getClass(className));
    for (Class cls = object_getClass(object); cls != nullptr; cls = class_getSuperclass(cls))
        if (cls == wanted) return true;
    return false;
}

std::string classNameOf(id object) {
    const Class cls = isClass(object) ? reinterpret_cast<Class>(object) : object_getClass(object);
    return class_getName(cls);
}

id makeString(std::string_view bytes) {
    const id allocated = send<id>(classNamed("NSString"), "alloc");
    const id string = send<id>(
        allocated, "initWithBytes:length:encoding:", static_cast<const void*>(bytes.data()),
        static_cast<unsigned long>(bytes.size()), utf8);
    return send<id>(string, "autorelease");
}

std::optional<std::string> stringBytes(id object) {
    if (!isKindOf(object, "NSString")) return std::nullopt;
    const id data = send<id>(object, "dataUsingEncoding:", utf8);
    const auto length = send<unsigned long>(data, "length");
    if (length == 0) return std::string();
    return std::string(static_cast<const char*>(send<const void*>(data, "bytes")), length);
}

AutoreleasePool::AutoreleasePool() : pool_(send<id>(classNamed("NSAutoreleasePool"), "new")) {}

AutoreleasePool::~AutoreleasePool() { send<void>(pool_, "drain"); }

}  // namespace simulator::scenario
