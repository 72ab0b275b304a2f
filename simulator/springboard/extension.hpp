// The library that is loaded into SpringBoard before it starts.
#pragma once

#include <functional>

namespace simulator {

// Takes the place of loading the shared object: tests that hold the library's code themselves call
// its start-up here.
void setExtensionLoader(std::function<void()> loader);

// Loads ../lib/libvantori.so beside the program, or what VANTORI_LIBRARY names. Throws
// std::runtime_error when there is none or it does not load.
void loadExtension();

}  // namespace simulator
