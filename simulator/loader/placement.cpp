#include "simulator/loader/placement.hpp"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace simulator::loader {

namespace {

constexpr std::uint32_t initialiserPointers = 0x09;
constexpr std::uint32_t initialiserOffsets = 0x16;

std::uint64_t placed(const MachOFile& file, Memory memory, std::uint64_t address) {
    return reinterpret_cast<std::uintptr_t>(memory.data()) + (address - file.start());
}

// Writes pointers, signed where they are to be.
class Writer {
  public:
    Writer(const MachOFile& file, Memory memory, const Sign& sign)
        : file_(file), memory_(memory), sign_(sign) {}

    void put(std::uint64_t address, std::uint64_t value, const std::optional<Signing>& signing) {
        if (signing) value = sign_(value, *signing, placed(file_, memory_, address));
        std::memcpy(memory_.subspan(address - file_.start(), pointerSize).data(), &value,
                    pointerSize);
    }

  private:
    const MachOFile& file_;
    Memory memory_;
    const Sign& sign_;
};

// Looks symbols up and gathers those that nobody has.
class Resolver {
  public:
    Resolver(const MachOFile& file, Memory memory, const Lookup& lookup)
        : file_(file), memory_(memory), lookup_(lookup) {}

    // Where the pointer must lead; nothing when it stays as it is.
    std::optional<std::uint64_t> target(const Bind& bind) {
        std::uint64_t found = bind.library == fromItself ? own(bind) : elsewhere(bind);
        if (found == 0 && bind.kind == Bind::Kind::weak) return std::nullopt;
        if (found == 0 && bind.optional) return 0;
        if (found == 0) missing_.insert({bind.symbol, bind.library});
        return found + static_cast<std::uint64_t>(bind.addend);
    }

    void complain() const {
        if (missing_.empty()) return;
        std::string message = "no such symbol:";
        for (const auto& [symbol, library] : missing_)
            message += " " + std::string(symbol) + " (of " + libraryName(file_, library) + ")";
        throw BadImage(message);
    }

  private:
    std::uint64_t own(const Bind& bind) const {
        auto found = file_.symbols.find(bind.symbol);
        return found == file_.symbols.end() ? 0 : placed(file_, memory_, found->second);
    }
    std::uint64_t elsewhere(const Bind& bind) const {
        std::string_view name = bind.symbol;
        // Of C's names all have an underscore; dyld_stub_binder and its like have none.
        if (name.starts_with('_')) name.remove_prefix(1);
        const auto found = reinterpret_cast<std::uintptr_t>(lookup_(name));
        return found == 0 && bind.library < 0 ? own(bind) : found;
    }

    const MachOFile& file_;
    Memory memory_;
    const Lookup& lookup_;
    std::set<std::pair<std::string_view, int>> missing_;
};

void checkInitialiser(const MachOFile& file, std::uint64_t address) {
    const Segment* segment = file.segmentAt(address, sizeof(std::uint32_t), true);
    if (!segment || !(segment->protection & canExecute))
        throw BadImage("the initialiser at " + hexadecimal(address) + " is no code");
}

}  // namespace

void copySegments(const MachOFile& file, Memory memory) {
    for (const Segment& segment : file.segments) {
        const auto bytes = file.bytes.part(segment.fileOffset, segment.fileSize, segment.name);
        std::ranges::copy(bytes.span(), memory.subspan(segment.address - file.start()).begin());
    }
}

void applyFixups(const MachOFile& file, const Fixups& fixups, Memory memory, const Lookup& lookup,
                 const Sign& sign) {
    Writer writer(file, memory, sign);
    for (const Rebase& rebase : fixups.rebases)
        writer.put(rebase.address, placed(file, memory, rebase.target), rebase.signing);
    Resolver resolver(file, memory, lookup);
    for (const Bind& bind : fixups.binds) {
        if (auto target = resolver.target(bind)) writer.put(bind.address, *target, bind.signing);
    }
    resolver.complain();
}

std::vector<std::uint64_t> initialisers(const MachOFile& file, const Fixups& fixups) {
    std::unordered_map<std::uint64_t, const Rebase*> rebases;
    for (const Rebase& rebase : fixups.rebases) rebases[rebase.address] = &rebase;
    std::vector<std::uint64_t> found;
    for (const Section& section : file.sections) {
        if (section.type() == initialiserPointers) {
            file.contents(section.address, section.size, "the initialisers");
            for (std::uint64_t at = 0; at + pointerSize <= section.size; at += pointerSize) {
                auto rebase = rebases.find(section.address + at);
                if (rebase == rebases.end())
                    throw BadImage("an initialiser does not move with the image");
                if (file.signsPointers && rebase->second->signing != functionSigning)
                    throw BadImage(
                        "an initialiser is not signed as a function of C: a phone stops there");
                found.push_back(rebase->second->target);
            }
        } else if (section.type() == initialiserOffsets) {
            if (file.signsPointers)
                throw BadImage(
                    "its initialisers are offsets, which iOS before 13.4 calls unsigned");
            const Bytes offsets = file.contents(section.address, section.size, "the initialisers");
            Cursor cursor(offsets, "the initialisers");
            while (!cursor.done()) found.push_back(file.start() + cursor.take<std::uint32_t>());
        }
    }
    for (std::uint64_t address : found) checkInitialiser(file, address);
    return found;
}

std::vector<SelectorReference> selectorReferences(const MachOFile& file, const Fixups& fixups) {
    std::vector<SelectorReference> found;
    if (!file.section("__DATA", "__objc_imageinfo")) return found;
    for (const Section& section : file.sections) {
        if (section.name != "__objc_selrefs") continue;
        for (const Rebase& rebase : fixups.rebases) {
            if (rebase.address < section.address ||
                rebase.address - section.address >= section.size)
                continue;
            const Segment* segment = file.segmentAt(rebase.target, 1, true);
            if (!segment)
                throw BadImage("the name of a selector at " + hexadecimal(rebase.target) +
                               " lies outside what the file holds");
            const std::uint64_t inside = rebase.target - segment->address;
            const Bytes rest =
                file.contents(rebase.target, segment->fileSize - inside, "a selector");
            found.push_back({rebase.address, rest.text(0, "the name of a selector")});
        }
    }
    return found;
}

}  // namespace simulator::loader
