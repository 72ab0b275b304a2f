// The mistake: a method that takes the place of the system's is said to take a float.
#include "platform/uikit.hpp"

namespace {

void setAlpha(id, SEL, double) {}

[[gnu::constructor]] void load() {
    Class cls = objc_allocateClassPair(objc_getClass("UIView"), "VNTProbe", 0);
    class_addMethod(cls, sel_registerName("setAlpha:"), reinterpret_cast<IMP>(&setAlpha), "v@:f");
    objc_registerClassPair(cls);
}

}  // namespace
