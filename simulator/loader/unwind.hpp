// How exceptions find their way through the image. A phone's file tells it in 32 bits a function
// (__unwind_info); the unwinder of Linux reads frame descriptions (.eh_frame). Functions of the
// library catch nothing, so it is enough to say where each finds its caller and the registers that
// it has saved.
#pragma once

#include <vector>

#include "simulator/loader/macho_file.hpp"

namespace simulator::loader {

struct UnwindEntry {
    std::uint64_t start;  // address as linked
    std::uint64_t end;
    std::uint32_t encoding;  // 0: nothing is known
};

// The entries of the image, by address; none when it has no such section.
std::vector<UnwindEntry> readUnwindInfo(const MachOFile& file);

// Frame descriptions for the entries of an image that stands `slide` bytes from where it was
// linked, with the zero at the end that __register_frame wants. Entries that say nothing, or refer
// to a section of their own, are left out.
std::vector<std::byte> frameDescriptions(const std::vector<UnwindEntry>& entries,
                                         std::uint64_t slide);

}  // namespace simulator::loader
