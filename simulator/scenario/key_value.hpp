// Reading a property by its name: a getter NAME or isNAME, else an instance variable NAME or
// _NAME, else, of a dictionary, the entry of that name.
#pragma once

#include <string>

#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

// Of nil it gives nil. Throws EvaluationError when the object has nothing of that name.
Value valueForKey(const Value& owner, const std::string& key);

}  // namespace simulator::scenario
