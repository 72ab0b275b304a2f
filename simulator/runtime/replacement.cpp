#include "simulator/runtime/replacement.hpp"

// The runtime's own, which class_addMethod ends with: makes the tables of a class and of all below
// it anew.
extern "C" void __objc_update_dispatch_table_for_class(Class cls);

namespace simulator {

void letSubclassesSee(Class cls) { __objc_update_dispatch_table_for_class(cls); }

// GCC's class_replaceMethod searches the hierarchy and would change the superclass and every
// sibling, so the method is added first; only when the class has one of its own is that one changed.
IMP replaceMethod(Class cls, SEL selector, IMP replacement) {
    Method method = cls ? class_getInstanceMethod(cls, selector) : nullptr;
    if (!method) return nullptr;
    IMP system = method_getImplementation(method);
    if (!class_addMethod(cls, selector, replacement, method_getTypeEncoding(method))) {
        method_setImplementation(method, replacement);
        letSubclassesSee(cls);
    }
    return system;
}

IMP replaceMethod(const char* className, MethodKind kind, const char* selectorName,
                  IMP replacement) {
    Class cls = objc_getClass(className);
    if (cls && kind == MethodKind::onClass) cls = object_getClass(reinterpret_cast<id>(cls));
    return replaceMethod(cls, sel_registerName(selectorName), replacement);
}

}  // namespace simulator
