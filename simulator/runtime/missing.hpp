// Classes and methods that this phone does not have, by name: a scenario takes them away before it boots. A
// stand-in of such a name is never registered, so looking it up gives nothing, as on a system
// version without it.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

void setMissing(std::string className);
bool isMissing(std::string_view className);
// A method or a class method of a class that is there.
void setMissingMethod(std::string className, std::string selector);
bool isMissingMethod(std::string_view className, std::string_view selector);

}  // namespace simulator
