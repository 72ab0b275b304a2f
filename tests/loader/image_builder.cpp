#include "tests/loader/image_builder.hpp"

#include <algorithm>
#include <cstring>

namespace simulator::loader::tests {

namespace {

constexpr std::size_t headerSize = 32;
constexpr std::size_t codeSize = 16;

template <class T>
List number(T value) {
    List bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

List padded(const std::string& characters, std::size_t size) {
    List bytes(characters.begin(), characters.end());
    bytes.resize(size);
    return bytes;
}

List command(std::uint32_t kind, List body) {
    body.resize((body.size() + 7) / 8 * 8);
    return u32(kind) + u32(static_cast<std::uint32_t>(body.size() + 8)) + body;
}

struct Part {
    std::uint64_t address, memorySize, fileOffset, fileSize;
};

List segment(const std::string& name, Part part, std::uint32_t protection,
             const std::vector<SectionSketch>& sections) {
    List body = padded(name, 16) + u64(part.address) + u64(part.memorySize) + u64(part.fileOffset) +
                u64(part.fileSize) + u32(protection) + u32(protection) +
                u32(static_cast<std::uint32_t>(sections.size())) + u32(0);
    for (const SectionSketch& section : sections)
        body = body + padded(section.name, 16) + padded(section.segment, 16) +
               u64(section.address) + u64(section.size) + u32(0) + u32(0) + u32(0) + u32(0) +
               u32(section.flags) + u32(0) + u32(0) + u32(0);
    return command(0x19, body);
}

// The parts of __LINKEDIT, and where they start in the file.
class LinkData {
  public:
    explicit LinkData(std::uint64_t start) : start_(start) {}
    // "offset, size" of the list, which is appended.
    List add(const List& list) {
        List place = u32(static_cast<std::uint32_t>(start_ + bytes_.size())) +
                     u32(static_cast<std::uint32_t>(list.size()));
        bytes_ = bytes_ + list;
        return place;
    }
    std::uint64_t offset() const { return start_ + bytes_.size(); }
    const List& bytes() const { return bytes_; }

  private:
    std::uint64_t start_;
    List bytes_;
};

List commandsOf(const ImageBuilder& image, std::uint64_t size, LinkData& link) {
    const std::uint64_t textSize = headerSize + size + codeSize;
    const std::uint64_t dataSize = sizeof image.pointers;
    List places;
    List info;
    if (image.chains.empty()) {
        for (const List* list : {&image.rebase, &image.bind, &image.weakBind, &image.lazyBind})
            places = places + link.add(*list);
        info = command(0x80000022, places + u32(0) + u32(0));
    } else {
        info = command(0x80000034, link.add(image.chains));
    }
    List entries, names{0};
    for (const SymbolSketch& symbol : image.symbols) {
        entries = entries + u32(static_cast<std::uint32_t>(names.size())) + List{0x0f, 1, 0, 0} +
                  u64(symbol.address);
        names = names + text(symbol.name);
    }
    const auto entriesAt = static_cast<std::uint32_t>(link.offset());
    link.add(entries);
    const List table =
        command(0x2, u32(entriesAt) + u32(static_cast<std::uint32_t>(image.symbols.size())) +
                         link.add(names));
    List commands = segment("__TEXT", {0, 0x4000, 0, textSize}, 5, {}) +
                    segment("__DATA", {image.dataStart, image.dataMemorySize, textSize, dataSize},
                            image.dataProtection, image.sections) +
                    segment("__LINKEDIT",
                            {linkAddress, 0x4000, textSize + dataSize, link.bytes().size()}, 1, {});
    for (const std::string& library : image.libraries)
        commands = commands + command(0xc, u32(24) + u32(0) + u32(0) + u32(0) + text(library));
    if (image.platformCommand != 0)
        commands = commands +
                   command(image.platformCommand, u32(image.platform) + u32(0) + u32(0) + u32(0));
    return commands + info + table + image.extraCommand;
}

}  // namespace

List operator+(List list, const List& more) {
    list.insert(list.end(), more.begin(), more.end());
    return list;
}

List text(const std::string& characters) { return padded(characters, characters.size() + 1); }

List uleb(std::uint64_t value) {
    List bytes;
    for (; value >= 0x80; value >>= 7) bytes.push_back(static_cast<std::uint8_t>(value | 0x80));
    bytes.push_back(static_cast<std::uint8_t>(value));
    return bytes;
}

List u16(std::uint16_t value) { return number(value); }
List u32(std::uint32_t value) { return number(value); }
List u64(std::uint64_t value) { return number(value); }

std::uint64_t ImageBuilder::codeAddress() const {
    LinkData none(0);
    return headerSize + commandsOf(*this, 0, none).size();
}

std::vector<std::byte> ImageBuilder::build() const {
    const std::uint64_t size = codeAddress() - headerSize;
    LinkData link(headerSize + size + codeSize + sizeof pointers);
    const List commands = commandsOf(*this, size, link);
    List data(sizeof pointers);
    std::memcpy(data.data(), pointers.data(), sizeof pointers);
    // Segments, the two of symbols and fixups, one a library, the platform's.
    const std::size_t count =
        3 + 2 + libraries.size() + (platformCommand != 0 ? 1 : 0) + (extraCommand.empty() ? 0 : 1);
    const List file = u32(magic) + u32(machine) + u32(subtype) + u32(type) +
                      u32(static_cast<std::uint32_t>(count)) +
                      u32(static_cast<std::uint32_t>(commands.size())) + u32(0) + u32(0) +
                      commands + List(codeSize, 0xc0) + data + link.bytes();
    std::vector<std::byte> bytes(file.size());
    std::memcpy(bytes.data(), file.data(), file.size());
    return bytes;
}

std::vector<std::byte> fatFile(const std::vector<SliceSketch>& slices) {
    constexpr std::size_t page = 0x4000;
    const auto bigEndian = [](std::size_t value) {
        const List little = u32(static_cast<std::uint32_t>(value));
        return List(little.rbegin(), little.rend());
    };
    List head = bigEndian(0xcafebabe) + bigEndian(slices.size());
    std::vector<std::byte> file(page);
    for (const SliceSketch& slice : slices) {
        head = head + bigEndian(0x0100000c) + bigEndian(slice.subtype) + bigEndian(file.size()) +
               bigEndian(slice.image.size()) + bigEndian(14);
        file.insert(file.end(), slice.image.begin(), slice.image.end());
        file.resize((file.size() + page - 1) / page * page);
    }
    std::memcpy(file.data(), head.data(), head.size());
    return file;
}

}  // namespace simulator::loader::tests
