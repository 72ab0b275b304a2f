// Puts a function of the phone in the place of a method of GNUstep's Foundation, in that class only.
#pragma once

#include "platform/runtime.hpp"

namespace simulator {

enum class MethodKind { instance, onClass };

// Answers the implementation that was there; empty when the class or the method is missing, and
// then nothing is replaced.
inline IMP replaceMethod(const char* className, MethodKind kind, const char* selectorName,
                         IMP replacement) {
    Class cls = objc_getClass(className);
    if (cls && kind == MethodKind::onClass) cls = object_getClass(reinterpret_cast<id>(cls));
    SEL selector = sel_registerName(selectorName);
    Method method = cls ? class_getInstanceMethod(cls, selector) : nullptr;
    if (!method) return nullptr;
    IMP system = method_getImplementation(method);
    if (!class_addMethod(cls, selector, replacement, method_getTypeEncoding(method))) {
        method_setImplementation(class_getInstanceMethod(cls, selector), replacement);
    }
    return system;
}

}  // namespace simulator
