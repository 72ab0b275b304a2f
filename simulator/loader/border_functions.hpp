// The system functions that take or give back functions, for an arm64e library: what it hands over is
// authenticated, what it gets is signed. The phone's own pointers are plain.
#pragma once

#include <string_view>

namespace simulator::loader {

// What stands for the system function of that name; null when no function passes through it.
const void* borderFunction(std::string_view name);

}  // namespace simulator::loader
