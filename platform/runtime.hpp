// The object runtime's C functions, as far as the project uses them.
// On a device they are Apple's; on Linux GCC's runtime has the same functions under the same
// names, and the simulated phone supplies what it lacks (associated objects).
#pragma once

#include <cstddef>

#if defined(__APPLE__)

extern "C" {
struct objc_object;
struct objc_class;
struct objc_selector;
struct objc_method;
struct objc_ivar;
using id = objc_object*;
using Class = objc_class*;
using SEL = const objc_selector*;
using Method = objc_method*;
using Ivar = objc_ivar*;
using IMP = id (*)(id, SEL, ...);
struct objc_super {
    id self;
    Class super_class;
};

void objc_msgSend();
void objc_msgSendSuper();
Class objc_getClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class cls);
Class object_getClass(id object);
const char* class_getName(Class cls);
Class class_getSuperclass(Class cls);
bool class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
bool class_addIvar(Class cls, const char* name, std::size_t size, unsigned char alignment,
                   const char* types);
Method class_getInstanceMethod(Class cls, SEL selector);
Ivar class_getInstanceVariable(Class cls, const char* name);
Ivar* class_copyIvarList(Class cls, unsigned int* count);
Method* class_copyMethodList(Class cls, unsigned int* count);
const char* ivar_getName(Ivar ivar);
std::ptrdiff_t ivar_getOffset(Ivar ivar);
const char* method_getTypeEncoding(Method method);
IMP method_getImplementation(Method method);
SEL method_getName(Method method);
const char* sel_getName(SEL selector);
SEL sel_registerName(const char* name);
}

#else

#include <objc/message.h>
#include <objc/runtime.h>

#endif

extern "C" {
// The key is compared by address; policy 1 retains, without a lock.
id objc_getAssociatedObject(id object, const void* key);
void objc_setAssociatedObject(id object, const void* key, id value, std::size_t policy);

// The injection framework: swaps the implementation of a method and hands back the system's. With
// a nil class or a method that nobody implements nothing is installed and *saved stays untouched.
void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* saved);
}

namespace platform {
inline constexpr std::size_t associationRetainNonatomic = 1;
}
