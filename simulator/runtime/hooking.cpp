#include "simulator/runtime/hooking.hpp"

#include <algorithm>

#include "simulator/runtime/exports.hpp"
#include "simulator/runtime/replacement.hpp"
#include "simulator/runtime/system_log.hpp"

namespace simulator {

namespace {

std::vector<Handover>& record() {
    static auto& calls = *new std::vector<Handover>;
    return calls;
}

bool replace(Class cls, SEL selector, IMP replacement, IMP* saved) {
    IMP system = replaceMethod(cls, selector, replacement);
    if (system && saved) *saved = system;
    return system != nullptr;
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
