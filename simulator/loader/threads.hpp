// Fixups told as threads, which is the arm64e way of iOS 12 to 14: opcodes name the symbols and where
// each thread begins; each pointer holds what it shall become, how it is signed, and the distance to
// the next.
#pragma once

#include <span>

#include "simulator/loader/fixups.hpp"

namespace simulator::loader {

// Goes through the thread whose first pointer is at the address, and appends what it finds. The
// symbols are what its binds have numbers of.
void followThread(const MachOFile& file, std::uint64_t address, std::span<const Bind> symbols,
                  Fixups& fixups);

}  // namespace simulator::loader
