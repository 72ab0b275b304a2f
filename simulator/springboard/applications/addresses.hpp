// Which installed application opens an address, by its scheme.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

// Empty when nobody does.
std::string_view applicationForAddress(std::string_view address);

// Lets the application object open addresses.
void installAddresses();

}  // namespace simulator
