// Reading a property by its name: of a dictionary the entry, of anything else what a getter NAME
// or isNAME gives, or else an instance variable NAME or _NAME.
#pragma once

#include <string>

#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

// Of nil it gives nil. Throws EvaluationError when the object has nothing of that name.
Value valueForKey(const Value& owner, const std::string& key);

}  // namespace simulator::scenario
