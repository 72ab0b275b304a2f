// Fixups told as opcodes: two small machines, one for rebases and one for binds, that walk through
// the segments. The high half of a byte is the opcode, the low half a small number for it.
#include "simulator/loader/fixups.hpp"
#include "simulator/loader/threads.hpp"

namespace simulator::loader {

namespace {

constexpr std::uint8_t opcodeMask = 0xf0;
constexpr std::uint8_t immediateMask = 0x0f;
constexpr std::uint8_t pointerType = 1;

enum RebaseOpcode : std::uint8_t {
    rebaseDone = 0x00,
    rebaseSetType = 0x10,
    rebaseSetPlace = 0x20,
    rebaseAdvance = 0x30,
    rebaseAdvancePointers = 0x40,
    rebaseFew = 0x50,
    rebaseMany = 0x60,
    rebaseAndAdvance = 0x70,
    rebaseManySkipping = 0x80,
};

enum BindOpcode : std::uint8_t {
    bindDone = 0x00,
    bindSetSmallOrdinal = 0x10,
    bindSetOrdinal = 0x20,
    bindSetSpecialOrdinal = 0x30,
    bindSetSymbol = 0x40,
    bindSetType = 0x50,
    bindSetAddend = 0x60,
    bindSetPlace = 0x70,
    bindAdvance = 0x80,
    bindOnce = 0x90,
    bindAndAdvance = 0xa0,
    bindAndAdvancePointers = 0xb0,
    bindManySkipping = 0xc0,
    bindThreaded = 0xd0,
};

constexpr std::uint8_t weakImport = 1;
// What bindThreaded does.
constexpr std::uint8_t startSymbols = 0;
constexpr std::uint8_t followOne = 1;

// Where the machine stands: a segment and an offset in it. Offsets wrap, as they do in a phone's
// loader (linkers step backwards by adding large numbers); what counts is where a pointer is taken.
class Place {
  public:
    // A file cannot name more pointers than it has room for; twice, since a weak definition is
    // both rebased and bound. This bounds what a count of billions in a broken file can do.
    explicit Place(const MachOFile& file)
        : file_(file), left_(2 * (file.bytes.size() / pointerSize) + 2) {}

    void set(std::uint64_t segment, std::uint64_t offset) {
        if (segment >= file_.segments.size())
            throw BadImage("a fixup names segment " + std::to_string(segment) + " of " +
                           std::to_string(file_.segments.size()));
        segment_ = &file_.segments[segment];
        offset_ = offset;
    }
    void advance(std::uint64_t bytes) { offset_ += bytes; }

    // The address of the pointer here, which must be in the file's data.
    std::uint64_t pointer() {
        if (!segment_) throw BadImage("a fixup comes before any segment is named");
        if (segment_->fileSize < pointerSize || offset_ > segment_->fileSize - pointerSize)
            throw BadImage("a fixup lies outside segment " + std::string(segment_->name));
        if (!(segment_->protection & canWrite))
            throw BadImage("a fixup lies in segment " + std::string(segment_->name) +
                           ", which is not written");
        if (left_-- == 0) throw BadImage("it has more fixups than room for them");
        return segment_->address + offset_;
    }

  private:
    const MachOFile& file_;
    const Segment* segment_ = nullptr;
    std::uint64_t offset_ = 0;
    std::uint64_t left_;
};

[[noreturn]] void unknown(std::string_view list, std::uint8_t opcode) {
    throw BadImage("unknown opcode " + hexadecimal(opcode) + " in the " + std::string(list));
}

void checkType(std::uint64_t type) {
    if (type != pointerType) throw BadImage("a fixup is no pointer of 64 bits");
}

class RebaseMachine {
  public:
    RebaseMachine(const MachOFile& file, std::vector<Rebase>& found)
        : file_(file), place_(file), found_(found) {}

    void run(Bytes opcodes) {
        Cursor cursor(opcodes, "the rebase opcodes");
        while (!cursor.done()) {
            const std::uint8_t next = cursor.byte();
            const std::uint8_t opcode = next & opcodeMask;
            if (opcode == rebaseDone) return;
            step(opcode, next & immediateMask, cursor);
        }
    }

  private:
    void step(std::uint8_t opcode, std::uint64_t immediate, Cursor& cursor) {
        switch (opcode) {
            case rebaseSetType:
                return checkType(immediate);
            case rebaseSetPlace:
                return place_.set(immediate, cursor.uleb());
            case rebaseAdvance:
                return place_.advance(cursor.uleb());
            case rebaseAdvancePointers:
                return place_.advance(immediate * pointerSize);
            case rebaseFew:
                return rebase(immediate, 0);
            case rebaseMany:
                return rebase(cursor.uleb(), 0);
            case rebaseAndAdvance:
                return rebase(1, cursor.uleb());
            case rebaseManySkipping: {
                const std::uint64_t count = cursor.uleb();
                return rebase(count, cursor.uleb());
            }
            default:
                unknown("rebase opcodes", opcode);
        }
    }

    void rebase(std::uint64_t count, std::uint64_t skip) {
        for (; count > 0; --count) {
            const std::uint64_t address = place_.pointer();
            const Bytes held = file_.contents(address, pointerSize, "a pointer");
            found_.push_back({address, held.read<std::uint64_t>(0, "a pointer")});
            place_.advance(pointerSize + skip);
        }
    }

    const MachOFile& file_;
    Place place_;
    std::vector<Rebase>& found_;
};

class BindMachine {
  public:
    BindMachine(const MachOFile& file, Bind::Kind kind, std::string_view list, Fixups& fixups)
        : file_(file), kind_(kind), list_(list), place_(file), fixups_(fixups) {}

    void run(Bytes opcodes) {
        Cursor cursor(opcodes, "the " + std::string(list_));
        while (!cursor.done()) {
            const std::uint8_t next = cursor.byte();
            const std::uint8_t opcode = next & opcodeMask;
            // Each lazy bind ends with this, since a phone reads one alone; the list goes on.
            if (opcode == bindDone && kind_ != Bind::Kind::lazy) return;
            if (opcode != bindDone) step(opcode, next & immediateMask, cursor);
        }
    }

  private:
    void step(std::uint8_t opcode, std::uint8_t immediate, Cursor& cursor) {
        switch (opcode) {
            case bindSetSmallOrdinal:
                return setLibrary(immediate);
            case bindSetOrdinal:
                return setLibrary(static_cast<std::int64_t>(cursor.uleb()));
            case bindSetSpecialOrdinal:
                // Four bits with a sign.
                return setLibrary(immediate == 0 ? 0 : immediate - 16);
            case bindSetSymbol:
                symbol_ = cursor.text();
                optional_ = (immediate & weakImport) != 0;
                return;
            case bindSetType:
                return checkType(immediate);
            case bindSetAddend:
                addend_ = cursor.sleb();
                return;
            case bindSetPlace:
                return place_.set(immediate, cursor.uleb());
            case bindAdvance:
                return place_.advance(cursor.uleb());
            case bindOnce:
                return bind(1, 0);
            case bindAndAdvance:
                return bind(1, cursor.uleb());
            case bindAndAdvancePointers:
                return bind(1, immediate * pointerSize);
            case bindManySkipping: {
                const std::uint64_t count = cursor.uleb();
                return bind(count, cursor.uleb());
            }
            case bindThreaded:
                return thread(immediate, cursor);
            default:
                unknown(list_, opcode);
        }
    }

    void setLibrary(std::int64_t ordinal) {
        checkOrdinal(file_, ordinal);
        library_ = static_cast<int>(ordinal);
    }

    void bind(std::uint64_t count, std::uint64_t skip) {
        if (symbol_.empty()) throw BadImage("a bind comes before any symbol is named");
        if (threads_) {
            threads_->symbols.push_back({0, symbol_, addend_, library_, optional_, kind_});
            return;
        }
        for (; count > 0; --count) {
            fixups_.binds.push_back(
                {place_.pointer(), symbol_, addend_, library_, optional_, kind_});
            place_.advance(pointerSize + skip);
        }
    }

    // First comes the size of the table that binds fill from then on, then the threads that use it.
    void thread(std::uint8_t action, Cursor& cursor) {
        if (!file_.signsPointers) throw BadImage("its binds are threaded: that is for arm64e");
        if (action == startSymbols) {
            threads_ = Threads{.announced = cursor.uleb(), .symbols = {}};
            return;
        }
        if (action != followOne || !threads_) throw BadImage("an unknown kind of thread");
        if (threads_->symbols.size() != threads_->announced)
            throw BadImage(std::to_string(threads_->announced) + " symbols are announced and " +
                           std::to_string(threads_->symbols.size()) + " there");
        followThread(file_, place_.pointer(), threads_->symbols, fixups_);
    }

    struct Threads {
        std::uint64_t announced;
        std::vector<Bind> symbols;
    };

    const MachOFile& file_;
    Bind::Kind kind_;
    std::string_view list_;
    Place place_;
    Fixups& fixups_;
    std::optional<Threads> threads_;
    std::string_view symbol_;
    std::int64_t addend_ = 0;
    int library_ = fromItself;
    bool optional_ = false;
};

}  // namespace

Fixups readOpcodes(const MachOFile& file, const DyldInfo& info) {
    Fixups fixups;
    // An arm64e image always counts as threaded; from 13 on the other lists are not looked at.
    if (file.signsPointers && (info.rebase.size() != 0 || info.lazyBind.size() != 0))
        throw BadImage("it is for arm64e, and its pointers are not threaded");
    RebaseMachine(file, fixups.rebases).run(info.rebase);
    using Kind = Bind::Kind;
    BindMachine(file, Kind::plain, "bind opcodes", fixups).run(info.bind);
    BindMachine(file, Kind::lazy, "lazy bind opcodes", fixups).run(info.lazyBind);
    BindMachine(file, Kind::weak, "weak bind opcodes", fixups).run(info.weakBind);
    return fixups;
}

}  // namespace simulator::loader
