// Defines a class of the simulated phone: like platform::define, but every method is recorded in
// the journal, and nothing is made when the scenario took the class away.
#pragma once

#include "platform/definition.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/runtime/missing.hpp"

namespace simulator {

template <platform::Handle T, platform::Handle Super, class State = platform::detail::NoState>
platform::Definition<T, State, Journal> standIn() {
    if (isMissing(T::name.view())) return platform::Definition<T, State, Journal>(nullptr);
    return platform::define<T, Super, State, Journal>();
}

}  // namespace simulator
