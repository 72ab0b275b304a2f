// Makes small libraries for a phone, byte by byte: a header, three segments and the lists that a test
// fills. Offsets in the file are packed, so that one image is less than a kilobyte:
//   __TEXT      at 0x0000, the header and sixteen bytes of code at its end
//   __DATA      at 0x4000, eight pointers in the file, zero behind them
//   __LINKEDIT  at 0x8000, the lists
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace simulator::loader::tests {

using List = std::vector<std::uint8_t>;

inline constexpr std::uint64_t dataAddress = 0x4000;
inline constexpr std::uint64_t linkAddress = 0x8000;

// Appends numbers and texts to a list, for expectations that read like the format.
List operator+(List list, const List& more);
List text(const std::string& characters);  // with its zero byte
List uleb(std::uint64_t number);
List u16(std::uint16_t number);
List u32(std::uint32_t number);
List u64(std::uint64_t number);

struct SectionSketch {
    std::string segment;
    std::string name;
    std::uint64_t address;
    std::uint64_t size;
    std::uint32_t flags = 0;
};

struct SymbolSketch {
    std::string name;
    std::uint64_t address;
};

struct ImageBuilder {
    std::uint32_t magic = 0xfeedfacf;
    std::uint32_t machine = 0x0100000c;  // arm64
    std::uint32_t subtype = 0;
    std::uint32_t type = 6;                // dynamic library
    std::uint32_t platformCommand = 0x25;  // iOS from version …
    std::uint32_t platform = 2;            // … or, with command 0x32, this one
    std::uint32_t dataProtection = 3;
    std::uint64_t dataStart = dataAddress;
    std::uint64_t dataMemorySize = 0x4000;
    std::vector<std::string> libraries{"/usr/lib/libSystem.B.dylib", "/usr/lib/libobjc.A.dylib"};
    std::array<std::uint64_t, 8> pointers{};
    std::vector<SectionSketch> sections;  // described in __DATA's command
    std::vector<SymbolSketch> symbols;
    List rebase, bind, weakBind, lazyBind;
    List chains;        // in place of the four
    List extraCommand;  // whole, with its head

    std::vector<std::byte> build() const;
    // The address of the code, which stands behind the load commands.
    std::uint64_t codeAddress() const;
};

// A file that holds images for several kinds of arm64, each on a page of its own.
struct SliceSketch {
    std::uint32_t subtype;
    std::vector<std::byte> image;
};
std::vector<std::byte> fatFile(const std::vector<SliceSketch>& slices);

}  // namespace simulator::loader::tests
