#include "simulator/loader/threads.hpp"

namespace simulator::loader {

namespace {

constexpr std::string_view threadedPointer = "a threaded pointer";
constexpr std::uint64_t threadPage = 0x1000;

// `count` bits of the number from bit `first` on.
constexpr std::uint64_t bits(std::uint64_t number, unsigned first, unsigned count) {
    return (number >> first) & ((std::uint64_t{1} << count) - 1);
}

std::optional<Signing> signingOf(std::uint64_t pointer) {
    if (!bits(pointer, 63, 1)) return std::nullopt;
    return Signing{.key = static_cast<std::uint8_t>(bits(pointer, 49, 2)),
                   .number = static_cast<std::uint16_t>(bits(pointer, 32, 16)),
                   .byPlace = bits(pointer, 48, 1) != 0};
}

// A signed target counts from the header, a plain one is an address with its highest byte apart.
std::uint64_t targetOf(const MachOFile& file, std::uint64_t pointer) {
    if (bits(pointer, 63, 1)) return file.start() + bits(pointer, 0, 32);
    return bits(pointer, 43, 8) << 56 | bits(pointer, 0, 43);
}

void take(const MachOFile& file, std::uint64_t address, std::uint64_t pointer,
          std::span<const Bind> symbols, Fixups& fixups) {
    if (!bits(pointer, 62, 1)) {
        fixups.rebases.push_back({address, targetOf(file, pointer), signingOf(pointer)});
        return;
    }
    const std::uint64_t number = bits(pointer, 0, 16);
    if (number >= symbols.size())
        throw BadImage("a threaded pointer names symbol " + std::to_string(number) + " of " +
                       std::to_string(symbols.size()));
    Bind bind = symbols[number];
    bind.address = address;
    bind.signing = signingOf(pointer);
    fixups.binds.push_back(bind);
}

void check(const MachOFile& file, std::uint64_t address, const Fixups& fixups) {
    if (address % pointerSize != 0) throw BadImage("a threaded pointer is not aligned");
    const Segment* segment = file.segmentAt(address, pointerSize, true);
    if (segment && !(segment->protection & canWrite))
        throw BadImage("a fixup lies in segment " + std::string(segment->name) +
                       ", which is not written");
    if (fixups.rebases.size() + fixups.binds.size() > file.bytes.size() / pointerSize)
        throw BadImage("it has more fixups than room for them");
}

}  // namespace

void followThread(const MachOFile& file, std::uint64_t address, std::span<const Bind> symbols,
                  Fixups& fixups) {
    const std::uint64_t end = (address / threadPage + 1) * threadPage;
    for (;;) {
        check(file, address, fixups);
        const auto pointer = file.contents(address, pointerSize, threadedPointer)
                                 .read<std::uint64_t>(0, threadedPointer);
        take(file, address, pointer, symbols, fixups);
        const std::uint64_t distance = bits(pointer, 51, 11);
        if (distance == 0) return;
        address += distance * pointerSize;
        if (address >= end) throw BadImage("a thread leaves its page");
    }
}

}  // namespace simulator::loader
