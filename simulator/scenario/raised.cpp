// A wrapper around -[NSException raise], through which Foundation raises everything.
#include "simulator/scenario/raised.hpp"

#include <utility>

#include "simulator/runtime/replacement.hpp"
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
    originalRaise = reinterpret_cast<Raise>(replaceMethod(
        "NSException", MethodKind::instance, "raise", reinterpret_cast<IMP>(&noteAndRaise)));
}

std::string takeRaised() {
    std::string text = std::exchange(latest, {});
    return text.empty() ? "an exception of an unknown kind" : text;
}

}  // namespace simulator::scenario
