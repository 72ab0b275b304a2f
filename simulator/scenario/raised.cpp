// A wrapper around -[NSException raise], through which Foundation raises everything.
#include "simulator/scenario/raised.hpp"

#include <utility>

#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

using Raise = void (*)(id, SEL);

Raise originalRaise = nullptr;
std::string latest;

void noteAndRaise(id exception, SEL selector) {
    latest = stringBytes(send<id>(exception, "name")).value_or("an exception");
    if (const auto reason = stringBytes(send<id>(exception, "reason"))) latest += ": " + *reason;
    originalRaise(exception, selector);
}

}  // namespace

void watchExceptions() {
    if (originalRaise != nullptr) return;
    const auto cls = reinterpret_cast<Class>(classNamed("NSException"));
    const Method method = class_getInstanceMethod(cls, sel_registerName("raise"));
    if (method == nullptr) return;
    const auto replacement = reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(noteAndRaise));
    const auto original = reinterpret_cast<void (*)()>(method_getImplementation(method));
    originalRaise = reinterpret_cast<Raise>(original);
    method_setImplementation(method, replacement);
}

std::string takeRaised() {
    std::string text = std::exchange(latest, {});
    return text.empty() ? "an exception of an unknown kind" : text;
}

}  // namespace simulator::scenario
