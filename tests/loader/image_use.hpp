// All that happens to the file of a library before it is mapped, and to its memory.
#pragma once

#include <span>
#include <vector>

#include "simulator/loader/placement.hpp"
#include "simulator/loader/slices.hpp"
#include "simulator/loader/unwind.hpp"

namespace simulator::loader::tests {

// Throws BadImage where the loader would.
inline void use(std::span<const std::byte> bytes) {
    const MachOFile file = readMachO(sliceFor(Bytes(bytes), Process::arm64e).span());
    const Fixups fixups = readFixups(file);
    initialisers(file, fixups);
    selectorReferences(file, fixups);
    frameDescriptions(readUnwindInfo(file), 0);
    constexpr std::uint64_t affordable = 1 << 20;
    if (file.memorySize() > affordable) return;
    std::vector<std::byte> memory(file.memorySize());
    copySegments(file, memory);
    const int symbol = 0;
    applyFixups(
        file, fixups, memory, [&](std::string_view) { return &symbol; },
        [](std::uint64_t pointer, const Signing&, std::uint64_t) { return pointer; });
}

}  // namespace simulator::loader::tests
