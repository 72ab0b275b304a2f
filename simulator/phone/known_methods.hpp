// Which classes and methods there can be on a phone, for expectations that name them.
#pragma once

#include <optional>
#include <string>

namespace simulator {

// Why no such method can ever run or be hooked: this system has no such class, or no system has such a
// method in it. Nothing when one can. A class that the scenario took away is one that there can be.
std::optional<std::string> mistakeInMethodName(const std::string& className,
                                               const std::string& selector);

}  // namespace simulator
