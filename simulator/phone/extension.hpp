// The library that is loaded into SpringBoard before it starts.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace simulator {

// Takes the place of loading the shared object: tests that hold the library's code themselves call
// its start-up here.
void setExtensionLoader(std::function<void()> loader);

// The file to load, for this process and those that it starts: VANTORI_LIBRARY in the environment.
void nameExtension(const std::filesystem::path& path);

// Which slice of a phone's library to load, arm64 or arm64e, for both again: VANTORI_SLICE. Without it,
// the one that a phone of this model takes.
void nameSlice(const std::string& name);

// Loads ../lib/libvantori.so beside the program, or what VANTORI_LIBRARY names: a shared object of
// this machine, or on arm64 a library for a phone. Throws std::runtime_error when there is none or
// it does not load.
void loadExtension();

}  // namespace simulator
