// The places of an image that its loader must fill in: pointers into the image itself, which move
// with it (rebases), and pointers to symbols of other libraries (binds). Images tell them in one of
// three ways: as opcodes (LC_DYLD_INFO), for arm64e as opcodes with threads through the pointers, or as
// chains through the pointers (LC_DYLD_CHAINED_FIXUPS); all are read into one list. Addresses are those that the file was linked at.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "simulator/loader/macho_file.hpp"
#include "simulator/loader/signing.hpp"

namespace simulator::loader {

// The eight bytes at the address become the target's place in memory.
struct Rebase {
    std::uint64_t address;
    std::uint64_t target;
    std::optional<Signing> signing = {};
};

// The eight bytes at the address become the symbol's address plus the addend.
struct Bind {
    enum class Kind {
        plain,
        lazy,  // a function; a phone looks it up at its first call
        weak,  // one of several definitions: without any elsewhere the image's own stays
    };
    std::uint64_t address;
    std::string_view symbol;  // with the underscore of C
    std::int64_t addend;
    // The ordinal of the library that has it (from 1), or one of those below.
    int library;
    bool optional;  // zero when nobody has it
    Kind kind;
    std::optional<Signing> signing = {};
};

inline constexpr int fromItself = 0;
inline constexpr int fromProgram = -1;
inline constexpr int fromAnywhere = -2;
inline constexpr int fromWeakDefinitions = -3;

struct Fixups {
    std::vector<Rebase> rebases;
    std::vector<Bind> binds;
};

// All of the image. Throws BadImage for a list that is malformed or leaves the file's data.
Fixups readFixups(const MachOFile& file);

// The parts of it, by the way that they are told.
Fixups readOpcodes(const MachOFile& file, const DyldInfo& info);
Fixups readChains(const MachOFile& file, Bytes chains);

// The name of what an ordinal stands for: the library's path, or "any library".
std::string libraryName(const MachOFile& file, int ordinal);
// Throws BadImage for an ordinal that names no library of the file.
void checkOrdinal(const MachOFile& file, std::int64_t ordinal);

}  // namespace simulator::loader
