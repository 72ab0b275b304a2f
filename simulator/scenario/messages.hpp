// Messages of any signature, sent by libffi as the method's type encoding says.
#pragma once

#include <string>
#include <vector>

#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

// Sends a message and gives its result. The receiver may be nil (the result is then nil, which
// equals any zero), a class, an object, or a number, which is boxed. Throws EvaluationError for an
// unknown selector, a wrong number of arguments or an argument of the wrong kind: nothing is sent
// then. What the method itself raises passes through.
Value sendMessage(const Value& receiver, const std::string& selector,
                  const std::vector<Value>& arguments);

bool understands(objc_object* receiver, const std::string& selector);

}  // namespace simulator::scenario
