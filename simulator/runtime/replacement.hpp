// Puts a function in the place of a method, in one class and in those that inherit it from there;
// never in a superclass or a sibling.
#pragma once

#include "platform/runtime.hpp"

namespace simulator {

enum class MethodKind { instance, onClass };

// Answers the implementation that was there; empty when the class or the method is missing, and
// then nothing is replaced.
IMP replaceMethod(Class cls, SEL selector, IMP replacement);
IMP replaceMethod(const char* className, MethodKind kind, const char* selectorName,
                  IMP replacement);

// After method_setImplementation: lets the subclasses of a class see it too. The runtime tells only
// the class that has the method; a subclass has a table of its own, in parts that it shares with
// its superclass until something in such a part differs.
void letSubclassesSee(Class cls);

}  // namespace simulator
