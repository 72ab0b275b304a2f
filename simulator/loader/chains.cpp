// Fixups told as chains: each pointer holds what it shall become and the distance to the next, in
// steps of four bytes; a table holds where the first one of each page is. Formats are those of
// 64-bit images with plain pointers; those with signed pointers are arm64e's.
#include <array>

#include "simulator/loader/fixups.hpp"

namespace simulator::loader {

namespace {

constexpr std::string_view chainedFixups = "the chained fixups";
constexpr std::uint64_t step = 4;

enum ImportFormat : std::uint32_t { plainImports = 1, smallAddends = 2, largeAddends = 3 };
enum PointerFormat : std::uint16_t { absoluteTargets = 2, relativeTargets = 6 };
constexpr std::uint16_t signedFormats[] = {1, 7, 9, 10, 11, 12};
constexpr std::uint16_t noFixups = 0xffff;
constexpr std::uint16_t severalStarts = 0x8000;

struct Import {
    std::string_view symbol;
    std::int64_t addend;
    int library;
    bool optional;
};

// `count` bits of the number from bit `first` on.
constexpr std::uint64_t bits(std::uint64_t number, unsigned first, unsigned count) {
    return (number >> first) & ((std::uint64_t{1} << count) - 1);
}

class ChainReader {
  public:
    ChainReader(const MachOFile& file, Bytes chains) : file_(file), chains_(chains) {}

    Fixups read() {
        if (number(0) != 0)
            throw BadImage("version " + std::to_string(number(0)) +
                           " of chained fixups is unknown");
        if (number(24) != 0) throw BadImage("the names in the chained fixups are compressed");
        readImports();
        const Bytes starts = chains_.from(number(4), chainedFixups);
        const auto segments = starts.read<std::uint32_t>(0, chainedFixups);
        for (std::uint64_t index = 0; index < segments; ++index) {
            const auto offset = starts.read<std::uint32_t>(4 + 4 * index, chainedFixups);
            if (offset != 0) readSegment(starts.from(offset, chainedFixups));
        }
        return std::move(fixups_);
    }

  private:
    std::uint32_t number(std::uint64_t at) const {
        return chains_.read<std::uint32_t>(at, chainedFixups);
    }

    void readImports() {
        const Bytes imports = chains_.from(number(8), chainedFixups);
        const Bytes names = chains_.from(number(12), chainedFixups);
        const std::uint32_t count = number(16);
        const std::uint32_t format = number(20);
        constexpr std::array<std::uint64_t, 4> sizes{0, 4, 8, 16};
        if (format < plainImports || format > largeAddends)
            throw BadImage("the imports of the chained fixups have unknown format " +
                           std::to_string(format));
        imports.part(0, count * sizes[format], chainedFixups);
        for (std::uint32_t index = 0; index < count; ++index) {
            const std::uint64_t at = index * sizes[format];
            imports_.push_back(format == largeAddends ? largeImport(imports, at, names)
                                                      : smallImport(imports, at, names, format));
            checkOrdinal(file_, imports_.back().library);
        }
    }

    static Import smallImport(Bytes imports, std::uint64_t at, Bytes names, std::uint32_t format) {
        const auto entry = imports.read<std::uint32_t>(at, chainedFixups);
        const std::int64_t addend =
            format == smallAddends ? imports.read<std::int32_t>(at + 4, chainedFixups) : 0;
        return {names.text(bits(entry, 9, 23), chainedFixups), addend,
                static_cast<std::int8_t>(bits(entry, 0, 8)), bits(entry, 8, 1) != 0};
    }

    static Import largeImport(Bytes imports, std::uint64_t at, Bytes names) {
        const auto entry = imports.read<std::uint64_t>(at, chainedFixups);
        return {names.text(bits(entry, 32, 32), chainedFixups),
                imports.read<std::int64_t>(at + 8, chainedFixups),
                static_cast<std::int16_t>(bits(entry, 0, 16)), bits(entry, 16, 1) != 0};
    }

    void readSegment(Bytes starts) {
        const auto page = starts.read<std::uint16_t>(4, chainedFixups);
        const auto format = starts.read<std::uint16_t>(6, chainedFixups);
        const auto offset = starts.read<std::uint64_t>(8, chainedFixups);
        const auto pages = starts.read<std::uint16_t>(20, chainedFixups);
        checkFormat(format);
        if (page == 0) throw BadImage("the pages of the chained fixups have no size");
        for (std::uint64_t index = 0; index < pages; ++index) {
            const auto first = starts.read<std::uint16_t>(22 + 2 * index, chainedFixups);
            if (first == noFixups) continue;
            // Only chains of 32-bit pointers are so short that a page needs several.
            if (first & severalStarts) throw BadImage("a page has several chains of fixups");
            if (first >= page) throw BadImage("a chain of fixups starts outside its page");
            follow(file_.start() + offset + index * page + first, format);
        }
    }

    static void checkFormat(std::uint16_t format) {
        for (std::uint16_t other : signedFormats) {
            if (format == other) throw BadImage("its pointers are signed: it is for arm64e");
        }
        if (format != absoluteTargets && format != relativeTargets)
            throw BadImage("the chained fixups have unknown pointer format " +
                           std::to_string(format));
    }

    // A chain only goes forward, so it ends at the latest with the segment.
    void follow(std::uint64_t address, std::uint16_t format) {
        for (;;) {
            if (fixups_.rebases.size() + fixups_.binds.size() > file_.bytes.size() / step)
                throw BadImage("it has more fixups than room for them");
            const Segment* segment = file_.segmentAt(address, pointerSize, true);
            if (segment && !(segment->protection & canWrite))
                throw BadImage("a fixup lies in segment " + std::string(segment->name) +
                               ", which is not written");
            const auto pointer = file_.contents(address, pointerSize, "a chained pointer")
                                     .read<std::uint64_t>(0, "a chained pointer");
            bits(pointer, 63, 1) ? bind(address, pointer) : rebase(address, pointer, format);
            const std::uint64_t next = bits(pointer, 51, 12);
            if (next == 0) return;
            address += next * step;
        }
    }

    void rebase(std::uint64_t address, std::uint64_t pointer, std::uint16_t format) {
        const std::uint64_t base = format == relativeTargets ? file_.start() : 0;
        const std::uint64_t highByte = bits(pointer, 36, 8) << 56;
        fixups_.rebases.push_back({address, (base + bits(pointer, 0, 36)) | highByte});
    }

    void bind(std::uint64_t address, std::uint64_t pointer) {
        const std::uint64_t ordinal = bits(pointer, 0, 24);
        if (ordinal >= imports_.size())
            throw BadImage("a chained pointer names import " + std::to_string(ordinal) + " of " +
                           std::to_string(imports_.size()));
        const Import& import = imports_[ordinal];
        const auto addend = static_cast<std::int64_t>(bits(pointer, 24, 8));
        const auto kind =
            import.library == fromWeakDefinitions ? Bind::Kind::weak : Bind::Kind::plain;
        fixups_.binds.push_back({address, import.symbol, import.addend + addend, import.library,
                                 import.optional, kind});
    }

    const MachOFile& file_;
    Bytes chains_;
    std::vector<Import> imports_;
    Fixups fixups_;
};

}  // namespace

Fixups readChains(const MachOFile& file, Bytes chains) { return ChainReader(file, chains).read(); }

}  // namespace simulator::loader
