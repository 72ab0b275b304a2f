// How exceptions find their way through the image. A phone's file tells it in 32 bits a function
// (__unwind_info), which for a few functions name a frame description (__eh_frame): such as save nothing
// but where they return to. The unwinder of Linux reads frame descriptions alone. Functions of the
// library catch nothing, so it is enough to say where each finds its caller and the registers that
// it has saved.
#pragma once

#include <vector>

#include "simulator/loader/macho_file.hpp"

namespace simulator::loader {

struct UnwindEntry {
    std::uint64_t start;  // address as linked
    std::uint64_t end;
    std::uint32_t encoding;   // 0: nothing is known
    Bytes instructions = {};  // of the description that the encoding names
};

// The entries of the image, by address; none when it has no such section.
std::vector<UnwindEntry> readUnwindInfo(const MachOFile& file);

// Frame descriptions for the entries of an image that stands `slide` bytes from where it was
// linked, with the zero at the end that __register_frame wants. Entries that say nothing are left out.
std::vector<std::byte> frameDescriptions(const std::vector<UnwindEntry>& entries,
                                         std::uint64_t slide);

}  // namespace simulator::loader
