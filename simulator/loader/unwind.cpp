#include "simulator/loader/unwind.hpp"

#include <algorithm>

namespace simulator::loader {

namespace {

constexpr std::string_view unwindInformation = "the unwind information";

enum PageKind : std::uint32_t { regularPage = 2, compressedPage = 3 };

// The 32 bits of arm64.
constexpr std::uint32_t modeMask = 0x0f000000;
constexpr std::uint32_t framelessMode = 0x02000000;
constexpr std::uint32_t describedMode = 0x03000000;
constexpr std::uint32_t frameMode = 0x04000000;
constexpr std::uint32_t descriptionMask = 0x00ffffff;
constexpr unsigned framelessSizeShift = 12;
constexpr std::uint32_t framelessSizeMask = 0xfff;
constexpr std::uint64_t framelessUnit = 16;

// Registers by their numbers in frame descriptions.
constexpr std::uint8_t framePointer = 29;
constexpr std::uint8_t linkRegister = 30;
constexpr std::uint8_t stackPointer = 31;
struct SavedPair {
    std::uint32_t bit;
    std::uint8_t first;
    std::uint8_t second;
};
// In the order in which they lie below the frame's two words.
constexpr SavedPair savedPairs[] = {
    {0x001, 19, 20}, {0x002, 21, 22}, {0x004, 23, 24}, {0x008, 25, 26}, {0x010, 27, 28},
    {0x100, 72, 73}, {0x200, 74, 75}, {0x400, 76, 77}, {0x800, 78, 79},
};

class UnwindReader {
  public:
    UnwindReader(const MachOFile& file, Bytes info) : file_(file), info_(info) {}

    std::vector<UnwindEntry> read() {
        if (number(0) != 1) throw BadImage("its unwind information has an unknown version");
        readEncodings(common_, number(4), number(8));
        const std::uint64_t index = number(20);
        const std::uint32_t count = number(24);
        constexpr std::uint64_t indexSize = 12;
        info_.part(index, count * indexSize, unwindInformation);
        // The last one has no page; it says where the last function ends.
        for (std::uint64_t entry = 0; entry + 1 < count; ++entry) {
            const std::uint64_t at = index + entry * indexSize;
            if (number(at + 4) != 0) readPage(number(at), number(at + 4));
        }
        finish(count == 0 ? 0 : number(index + (count - 1) * indexSize));
        return std::move(entries_);
    }

  private:
    std::uint32_t number(std::uint64_t at) const {
        return info_.read<std::uint32_t>(at, unwindInformation);
    }

    void readEncodings(std::vector<std::uint32_t>& encodings, std::uint64_t at,
                       std::uint64_t count) const {
        Cursor cursor(info_.part(at, count * 4, unwindInformation), unwindInformation);
        encodings.clear();
        while (!cursor.done()) encodings.push_back(cursor.take<std::uint32_t>());
    }

    void readPage(std::uint64_t firstFunction, std::uint64_t at) {
        const Bytes page = info_.from(at, unwindInformation);
        const auto kind = page.read<std::uint32_t>(0, unwindInformation);
        const auto entries = page.read<std::uint16_t>(4, unwindInformation);
        const auto count = page.read<std::uint16_t>(6, unwindInformation);
        if (kind == regularPage) {
            Cursor cursor(page.part(entries, count * std::uint64_t{8}, unwindInformation),
                          unwindInformation);
            while (!cursor.done()) {
                const auto start = cursor.take<std::uint32_t>();
                add(start, cursor.take<std::uint32_t>());
            }
        } else if (kind == compressedPage) {
            std::vector<std::uint32_t> own;
            readEncodings(own, at + page.read<std::uint16_t>(8, unwindInformation),
                          page.read<std::uint16_t>(10, unwindInformation));
            Cursor cursor(page.part(entries, count * std::uint64_t{4}, unwindInformation),
                          unwindInformation);
            while (!cursor.done()) {
                const auto entry = cursor.take<std::uint32_t>();
                add(firstFunction + (entry & 0xffffff), encoding(entry >> 24, own));
            }
        } else {
            throw BadImage("its unwind information has a page of unknown kind");
        }
    }

    std::uint32_t encoding(std::uint64_t index, const std::vector<std::uint32_t>& own) const {
        if (index < common_.size()) return common_[index];
        index -= common_.size();
        if (index >= own.size()) throw BadImage("its unwind information names no encoding");
        return own[index];
    }

    void add(std::uint64_t offset, std::uint32_t encoding) {
        entries_.push_back({file_.start() + offset, 0, encoding});
    }

    // Each function ends where the next one starts.
    void finish(std::uint64_t endOffset) {
        for (std::size_t index = 0; index < entries_.size(); ++index) {
            UnwindEntry& entry = entries_[index];
            entry.end =
                index + 1 < entries_.size() ? entries_[index + 1].start : file_.start() + endOffset;
            if (entry.end < entry.start)
                throw BadImage("its unwind information is not in the order of addresses");
        }
    }

    const MachOFile& file_;
    Bytes info_;
    std::vector<std::uint32_t> common_;
    std::vector<UnwindEntry> entries_;
};

// The image's own frame descriptions. All must start from what writeCommon() writes but for the form of
// addresses, so that the instructions mean the same here.
class Descriptions {
  public:
    explicit Descriptions(const MachOFile& file) {
        if (const Section* section = file.section("__TEXT", "__eh_frame"))
            bytes_ = file.contents(section->address, section->size, what);
    }

    Bytes instructionsAt(std::uint64_t at) const {
        const Bytes description = bytes_.part(at + 4, length(at), what);
        const auto back = description.read<std::uint32_t>(0, what);
        if (back > at + 4) throw BadImage("a frame description names no common part");
        checkCommon(at + 4 - back);
        // Behind the link: start and size of the function, and no augmentation.
        constexpr std::uint64_t head = 4 + 8 + 8 + 1;
        return description.from(head, what);
    }

  private:
    static constexpr std::string_view what = "the frame descriptions";

    std::uint64_t length(std::uint64_t at) const { return bytes_.read<std::uint32_t>(at, what); }

    void checkCommon(std::uint64_t at) const {
        // Version, "zR", units of one byte and of eight bytes downwards, the link register, addresses
        // from their own place; the frame lies where the stack pointer points.
        constexpr std::uint8_t expected[] = {1,    'z',  'R',          0, 1, 0x78, linkRegister, 1,
                                             0x10, 0x0c, stackPointer, 0};
        const Bytes common = bytes_.part(at + 8, sizeof expected, what);
        if (std::memcmp(common.span().data(), expected, sizeof expected) != 0)
            throw BadImage("its frame descriptions are of another form than clang's");
    }

    Bytes bytes_;
};

// Writes the records of a .eh_frame section.
class Writer {
  public:
    void open(std::uint32_t link) {
        start_ = bytes_.size();
        put<std::uint32_t>(0);
        put<std::uint32_t>(link);
    }
    // Pads with no-operations and fills in the length.
    void close() {
        while ((bytes_.size() - start_) % 8 != 0) put<std::uint8_t>(noOperation);
        const auto length = static_cast<std::uint32_t>(bytes_.size() - start_ - 4);
        std::memcpy(&bytes_[start_], &length, sizeof length);
    }
    void defineFrame(std::uint8_t base, std::uint64_t offset) {
        put<std::uint8_t>(defineCfa);
        put<std::uint8_t>(base);
        uleb(offset);
    }
    // The register lies that many words below the frame's address.
    void saved(std::uint8_t reg, std::uint64_t words) {
        if (reg < 0x40) {
            put<std::uint8_t>(savedAt | reg);
        } else {
            put<std::uint8_t>(savedAtExtended);
            uleb(reg);
        }
        uleb(words);
    }
    template <class T>
    void put(std::type_identity_t<T> value) {
        const auto* from = reinterpret_cast<const std::byte*>(&value);
        bytes_.insert(bytes_.end(), from, from + sizeof value);
    }
    void uleb(std::uint64_t number) {
        for (; number >= 0x80; number >>= 7)
            put<std::uint8_t>(static_cast<std::uint8_t>(number | 0x80));
        put<std::uint8_t>(static_cast<std::uint8_t>(number));
    }
    // What a description writes to name the common record, which is the first of all.
    std::uint32_t distanceToFirst() const { return static_cast<std::uint32_t>(bytes_.size() + 4); }
    std::vector<std::byte> take() { return std::move(bytes_); }

  private:
    static constexpr std::uint8_t noOperation = 0x00;
    static constexpr std::uint8_t savedAtExtended = 0x05;
    static constexpr std::uint8_t defineCfa = 0x0c;
    static constexpr std::uint8_t savedAt = 0x80;

    std::vector<std::byte> bytes_;
    std::size_t start_ = 0;
};

void writeCommon(Writer& writer) {
    constexpr std::uint8_t words = 0x78;  // -8: registers lie below the frame's address
    writer.open(0);
    writer.put<std::uint8_t>(1);
    for (char letter : {'z', 'R', '\0'}) writer.put<char>(letter);
    writer.uleb(1);
    writer.put<std::uint8_t>(words);
    writer.uleb(linkRegister);
    writer.uleb(1);
    writer.put<std::uint8_t>(0);  // addresses are absolute
    writer.defineFrame(stackPointer, 0);
    writer.close();
}

void writeFunction(Writer& writer, const UnwindEntry& entry, std::uint64_t slide) {
    writer.open(writer.distanceToFirst());
    writer.put<std::uint64_t>(entry.start + slide);
    writer.put<std::uint64_t>(entry.end - entry.start);
    writer.uleb(0);
    const std::uint32_t mode = entry.encoding & modeMask;
    if (mode == describedMode) {
        for (std::byte instruction : entry.instructions.span())
            writer.put<std::uint8_t>(std::to_integer<std::uint8_t>(instruction));
    } else if (mode == framelessMode) {
        const std::uint32_t size = (entry.encoding >> framelessSizeShift) & framelessSizeMask;
        writer.defineFrame(stackPointer, size * framelessUnit);
    } else {
        writer.defineFrame(framePointer, 16);
        writer.saved(linkRegister, 1);
        writer.saved(framePointer, 2);
        std::uint64_t words = 3;
        for (const SavedPair& pair : savedPairs) {
            if (!(entry.encoding & pair.bit)) continue;
            writer.saved(pair.first, words++);
            writer.saved(pair.second, words++);
        }
    }
    writer.close();
}

}  // namespace

std::vector<UnwindEntry> readUnwindInfo(const MachOFile& file) {
    const Section* section = file.section("__TEXT", "__unwind_info");
    if (!section || section->size == 0) return {};
    auto entries =
        UnwindReader(file, file.contents(section->address, section->size, unwindInformation))
            .read();
    const Descriptions descriptions(file);
    for (UnwindEntry& entry : entries) {
        if ((entry.encoding & modeMask) == describedMode)
            entry.instructions = descriptions.instructionsAt(entry.encoding & descriptionMask);
    }
    return entries;
}

std::vector<std::byte> frameDescriptions(const std::vector<UnwindEntry>& entries,
                                         std::uint64_t slide) {
    Writer writer;
    writeCommon(writer);
    for (const UnwindEntry& entry : entries) {
        const std::uint32_t mode = entry.encoding & modeMask;
        const bool known = mode == framelessMode || mode == describedMode || mode == frameMode;
        if (known && entry.end > entry.start) writeFunction(writer, entry, slide);
    }
    writer.put<std::uint32_t>(0);
    return writer.take();
}

}  // namespace simulator::loader
