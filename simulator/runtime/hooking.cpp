#include "simulator/runtime/hooking.hpp"

#include <algorithm>

#include "platform/runtime.hpp"
#include "simulator/runtime/exports.hpp"
#include "simulator/runtime/system_log.hpp"

namespace simulator {

namespace {

std::vector<Handover>& record() {
    static auto& calls = *new std::vector<Handover>;
    return calls;
}

// Swaps the implementation in the class itself, never in a superclass. GCC's class_replaceMethod
// searches the hierarchy and would change the superclass and every sibling, so the method is added
// first; only when the class has one of its own is that one changed.
bool replace(Class cls, SEL selector, IMP replacement, IMP* saved) {
    Method method = class_getInstanceMethod(cls, selector);
    if (!method) return false;
    IMP system = method_getImplementation(method);
    if (!class_addMethod(cls, selector, replacement, method_getTypeEncoding(method))) {
        method_setImplementation(class_getInstanceMethod(cls, selector), replacement);
    }
    if (saved) *saved = system;
    return true;
}

}  // namespace

const std::vector<Handover>& handovers() { return record(); }

bool wasHooked(std::string_view className, std::string_view selector) {
    return std::ranges::any_of(record(), [&](const Handover& call) {
        return !className.empty() && call.className == className && call.selector == selector;
    });
}

std::string hookList() {
    std::string text;
    for (const Handover& call : record()) {
        const std::string owner = call.className.empty() ? "(no class)" : call.className;
        text += "-[" + owner + " " + call.selector + "] " +
                (call.installed           ? "hooked"
                 : call.className.empty() ? "not installed: the class is missing"
                                          : "not installed: the method is missing") +
                "\n";
    }
    return text;
}

}  // namespace simulator

VANTORI_EXPORT void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* saved) {
    using namespace simulator;
    const char* name = sel_getName(selector);
    bool installed = cls && replace(cls, selector, replacement, saved);
    record().push_back({cls ? class_getName(cls) : "", name, installed});
    if (!cls) {
        SystemLog::shared().write(std::string("MS:Warning: nil class argument for ") + name);
    } else if (!installed) {
        SystemLog::shared().write(std::string("MS:Warning: message not found [") +
                                  class_getName(cls) + " " + name + "]");
    }
}
