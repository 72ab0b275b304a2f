// A library for a phone as it lies in a file: the header and load commands of a 64-bit Mach-O image
// for iOS, arm64 or arm64e, read and checked. Nothing is mapped and nothing is run, so this works on any host.
// Addresses are those that the file was linked at; it may be moved as a whole.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "simulator/loader/bytes.hpp"

namespace simulator::loader {

inline constexpr std::uint32_t canRead = 1;
inline constexpr std::uint32_t canWrite = 2;
inline constexpr std::uint32_t canExecute = 4;
// The processor, and the two kinds of it that differ in how pointers travel.
inline constexpr std::uint32_t arm64Machine = 0x0100000c;
inline constexpr std::uint32_t arm64Subtype = 0;
inline constexpr std::uint32_t arm64eSubtype = 2;
// Segments of arm64 start on pages of 16 KiB.
inline constexpr std::uint64_t pageSize = 0x4000;
inline constexpr std::uint64_t pointerSize = 8;  // bytes

struct Section {
    std::string_view segment;
    std::string_view name;
    std::uint64_t address;
    std::uint64_t size;
    std::uint32_t flags;

    std::uint32_t type() const { return flags & 0xff; }
};

struct Segment {
    std::string_view name;
    std::uint64_t address;
    std::uint64_t memorySize;
    std::uint64_t fileOffset;
    std::uint64_t fileSize;  // the rest of the memory is zero
    std::uint32_t protection;
};

// The four lists of opcodes of LC_DYLD_INFO.
struct DyldInfo {
    Bytes rebase;
    Bytes bind;
    Bytes weakBind;
    Bytes lazyBind;
};

// Views into the file's bytes, which must outlive it.
struct MachOFile {
    Bytes bytes;
    bool signsPointers = false;     // arm64e
    std::vector<Segment> segments;  // never none; each after the one before it
    std::vector<Section> sections;
    std::vector<std::string_view> libraries;  // by ordinal, the first is 1
    std::optional<DyldInfo> dyldInfo;
    std::optional<Bytes> chainedFixups;
    // What the image itself defines for others, with the underscore of C.
    std::map<std::string_view, std::uint64_t> symbols;

    std::uint64_t start() const { return segments.front().address; }
    // From the first byte of the first segment to the last of the last.
    std::uint64_t memorySize() const {
        return segments.back().address + segments.back().memorySize - start();
    }
    const Section* section(std::string_view segment, std::string_view name) const;
    // The segment that has that many bytes there, backed by the file when asked for; null for none.
    const Segment* segmentAt(std::uint64_t address, std::uint64_t size, bool inFile) const;
    // What the file holds for that address and size.
    Bytes contents(std::uint64_t address, std::uint64_t size, std::string_view what) const;
};

// Throws BadImage for anything but a whole iOS dylib for arm64 or arm64e, and for a fat file: that one
// has a list of them (slices.hpp).
MachOFile readMachO(std::span<const std::byte> bytes);

}  // namespace simulator::loader
