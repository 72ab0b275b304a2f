#include "simulator/loader/placement.hpp"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace simulator::loader {

namespace {

constexpr std::uint32_t initialiserPointers = 0x09;
constexpr std::uint32_t initialiserOffsets = 0x16;
constexpr std::uint64_t pointerSize = 8;

void put(const MachOFile& file, Memory memory, std::uint64_t address, std::uint64_t value) {
    std::memcpy(memory.subspan(address - file.start(), pointerSize).data(), &value, pointerSize);
}

std::uint64_t placed(const MachOFile& file, Memory memory, std::uint64_t address) {
    return reinterpret_cast<std::uintptr_t>(memory.data()) + (address - file.start());
}

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

void applyFixups(const MachOFile& file, const Fixups& fixups, Memory memory, const Lookup& lookup) {
    for (const Rebase& rebase : fixups.rebases)
        put(file, memory, rebase.address, placed(file, memory, rebase.target));
    Resolver resolver(file, memory, lookup);
    for (const Bind& bind : fixups.binds) {
        if (auto target = resolver.target(bind)) put(file, memory, bind.address, *target);
    }
    resolver.complain();
}

std::vector<std::uint64_t> initialisers(const MachOFile& file, const Fixups& fixups) {
    std::unordered_map<std::uint64_t, std::uint64_t> targets;
    for (const Rebase& rebase : fixups.rebases) targets[rebase.address] = rebase.target;
    std::vector<std::uint64_t> found;
    for (const Section& section : file.sections) {
        if (section.type() == initialiserPointers) {
            file.contents(section.address, section.size, "the initialisers");
            for (std::uint64_t at = 0; at + pointerSize <= section.size; at += pointerSize) {
                auto target = targets.find(section.address + at);
                if (target == targets.end())
                    throw BadImage("an initialiser does not move with the image");
                found.push_back(target->second);
            }
        } else if (section.type() == initialiserOffsets) {
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
