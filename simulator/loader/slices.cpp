#include "simulator/loader/slices.hpp"

#include <charconv>

#include "simulator/loader/macho_file.hpp"

namespace simulator::loader {

namespace {

// Its numbers are big-endian, other than all others of such files.
constexpr std::uint32_t fatMagic = 0xcafebabe;
constexpr std::uint32_t wideFatMagic = 0xcafebabf;
constexpr std::uint64_t headerSize = 8;
constexpr std::uint64_t entrySize = 20;
// The loader has read one page of the file when it chooses.
constexpr std::uint64_t mostSlices = (0x1000 - headerSize) / entrySize;
constexpr std::string_view list = "the list of architectures";

std::uint32_t bigEndian(Bytes bytes, std::uint64_t at) {
    const auto number = bytes.read<std::uint32_t>(at, list);
    return (number & 0xff) << 24 | (number & 0xff00) << 8 | (number >> 8 & 0xff00) | number >> 24;
}

std::uint32_t subtypeOf(Process process) {
    return process == Process::arm64e ? arm64eSubtype : arm64Subtype;
}

Bytes slice(Bytes file, Bytes entry) {
    const std::uint32_t offset = bigEndian(entry, 8);
    if (offset % pageSize != 0)
        throw BadImage("an architecture in it does not start on a page of 16 KiB");
    return file.part(offset, bigEndian(entry, 12), "an architecture");
}

}  // namespace

std::string_view nameOf(Process process) { return process == Process::arm64e ? "arm64e" : "arm64"; }

Process processNamed(std::string_view name) {
    for (Process process : {Process::arm64, Process::arm64e}) {
        if (name == nameOf(process)) return process;
    }
    throw std::invalid_argument("no slice '" + std::string(name) + "': arm64 or arm64e");
}

Process processOf(std::string_view machine) {
    constexpr std::string_view family = "iPhone";
    constexpr int firstThatSigns = 11;
    if (!machine.starts_with(family)) return Process::arm64;
    machine.remove_prefix(family.size());
    int generation = 0;
    std::from_chars(machine.data(), machine.data() + machine.size(), generation);
    return generation >= firstThatSigns ? Process::arm64e : Process::arm64;
}

Bytes sliceFor(Bytes file, Process process) {
    if (file.size() < headerSize) return file;
    const std::uint32_t magic = bigEndian(file, 0);
    if (magic == wideFatMagic)
        throw BadImage("it is a fat file with offsets of 64 bits, which iOS 11 and 12 do not read");
    if (magic != fatMagic) return file;
    const std::uint32_t count = bigEndian(file, 4);
    if (count > mostSlices) throw BadImage("it holds more architectures than a loader looks at");
    for (std::uint64_t index = 0; index < count; ++index) {
        const Bytes entry = file.part(headerSize + index * entrySize, entrySize, list);
        // The whole number counts: with bits of a version set (0x80000002) only iOS 14 takes it.
        if (bigEndian(entry, 0) == arm64Machine && bigEndian(entry, 4) == subtypeOf(process))
            return slice(file, entry);
    }
    throw BadImage("it holds nothing for " + std::string(nameOf(process)));
}

}  // namespace simulator::loader
