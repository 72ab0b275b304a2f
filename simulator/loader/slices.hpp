// A file that holds one library several times, for several processors (fat file): which of them a
// phone takes, as its loader (dyld of iOS 11 to 14) chooses.
#pragma once

#include <string_view>

#include "simulator/loader/bytes.hpp"

namespace simulator::loader {

// What SpringBoard runs as: arm64 up to the iPhone X, arm64e from the iPhone XS and XR on. The loader
// takes a library of the very kind and no other.
enum class Process { arm64, arm64e };

std::string_view nameOf(Process process);
// By its name; throws std::invalid_argument for another.
Process processNamed(std::string_view name);
// By a phone's machine identifier ("iPhone11,8").
Process processOf(std::string_view machine);

// The part of the file that such a process takes; all of a file that is not fat. Throws BadImage when
// there is none, or for a malformed list.
Bytes sliceFor(Bytes file, Process process);

}  // namespace simulator::loader
