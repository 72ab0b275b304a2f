// How a method's arguments and result travel, taken from its type encoding: what two
// implementations of one selector must agree on, whatever their compilers call the types.
#pragma once

#include <string>

namespace simulator::loader {

// The encoding without offsets, qualifiers, class names and structure names; one letter for
// booleans, one for each size of integers: "v24@0:8{CGSize=dd}16" is "v@:{dd}".
std::string shape(const char* encoding);

}  // namespace simulator::loader
