#include "simulator/loader/macho_file.hpp"

#include <algorithm>
#include <string>

namespace simulator::loader {

namespace {

// The first four bytes of files that are met in place of a library.
struct Kind {
    std::uint32_t magic;
    std::string_view message;
};
constexpr std::uint32_t magic64 = 0xfeedfacf;
constexpr Kind otherKinds[] = {
    {0xbebafeca, "it holds several architectures (fat file) in one another"},
    {0xbfbafeca, "it holds several architectures (fat file) in one another"},
    {0xfeedface, "it is for 32-bit machines"},
    {0xcefaedfe, "it is for big-endian machines"},
    {0xcffaedfe, "it is for big-endian machines"},
    {0x464c457f, "it is an ELF file: a library for Linux, not for a phone"},
};

constexpr std::uint32_t dylibType = 6;
constexpr std::uint64_t headerSize = 32;
constexpr std::uint64_t commandHeaderSize = 8;
constexpr std::uint32_t iosPlatform = 2;
// More than any library for a phone takes.
constexpr std::uint64_t largestImage = std::uint64_t{1} << 30;

enum Command : std::uint32_t {
    symbolTable = 0x2,
    loadDylib = 0xc,
    segment64 = 0x19,
    lazyLoadDylib = 0x20,
    dyldInfo = 0x22,
    minimumIOS = 0x25,
    encryption64 = 0x2c,
    buildVersion = 0x32,
    required = 0x80000000,  // a loader that does not know the command must refuse the file
    loadWeakDylib = required | 0x18,
    runPath = required | 0x1c,
    reexportDylib = required | 0x1f,
    dyldInfoOnly = required | dyldInfo,
    loadUpwardDylib = required | 0x23,
    exportsTrie = required | 0x33,
    chainedFixups = required | 0x34,
};

// Sections of classes that a compiler writes for Apple's runtime. The project's own are made by code.
constexpr std::string_view compiledClasses[] = {"__objc_classlist", "__objc_catlist",
                                                "__objc_nlclslist", "__objc_nlcatlist"};

class ImageReader {
  public:
    explicit ImageReader(std::span<const std::byte> bytes) { file_.bytes = Bytes(bytes); }

    MachOFile read() {
        checkHeader();
        readCommands();
        if (!forPhones_) throw BadImage("it does not say that it is for iOS");
        checkSegments();
        checkSections();
        return std::move(file_);
    }

  private:
    void checkHeader() {
        if (file_.bytes.size() == 0) throw BadImage("it is empty");
        const auto magic = file_.bytes.read<std::uint32_t>(0, "its first four bytes");
        for (const Kind& kind : otherKinds) {
            if (magic == kind.magic) throw BadImage(std::string(kind.message));
        }
        if (magic != magic64) throw BadImage("it is no Mach-O file");
        const Bytes header = file_.bytes.part(0, headerSize, "the header");
        if (header.read<std::uint32_t>(4, "the header") != arm64Machine)
            throw BadImage("it is for another processor than arm64");
        checkSubtype(header.read<std::uint32_t>(8, "the header"));
        if (header.read<std::uint32_t>(12, "the header") != dylibType)
            throw BadImage("it is no dynamic library");
    }

    // The whole number counts: iOS 12 and 13 do not take its highest byte, a version, off.
    void checkSubtype(std::uint32_t subtype) {
        constexpr std::uint32_t withoutVersion = 0x00ffffff;
        file_.signsPointers = subtype == arm64eSubtype;
        if (file_.signsPointers || (subtype & withoutVersion) == arm64Subtype) return;
        if ((subtype & withoutVersion) == arm64eSubtype)
            throw BadImage("it is for arm64e with a version (" + hexadecimal(subtype) +
                           "), which only iOS 14 takes");
        throw BadImage("it is for an unknown kind of arm64, " + hexadecimal(subtype));
    }

    void readCommands() {
        const auto count = file_.bytes.read<std::uint32_t>(16, "the header");
        const auto size = file_.bytes.read<std::uint32_t>(20, "the header");
        const Bytes commands = file_.bytes.part(headerSize, size, "the load commands");
        std::uint64_t at = 0;
        for (std::uint32_t index = 0; index < count; ++index) {
            const auto length = commands.read<std::uint32_t>(at + 4, "the load commands");
            if (length < commandHeaderSize || length % 8 != 0)
                throw BadImage("load command " + std::to_string(index) + " has a wrong size");
            readCommand(commands.read<std::uint32_t>(at, "the load commands"),
                        commands.part(at, length, "a load command"));
            at += length;
        }
    }

    void readCommand(std::uint32_t command, Bytes body) {
        switch (command) {
            case segment64:
                return readSegment(body);
            case loadDylib:
            case loadWeakDylib:
            case reexportDylib:
            case lazyLoadDylib:
            case loadUpwardDylib:
                return readLibrary(body);
            case dyldInfo:
            case dyldInfoOnly:
                return readDyldInfo(body);
            case chainedFixups:
                file_.chainedFixups = linkData(body, 8, "the chained fixups");
                return;
            case symbolTable:
                return readSymbols(body);
            case minimumIOS:
                forPhones_ = true;
                return;
            case buildVersion:
                if (body.read<std::uint32_t>(8, "the build version") != iosPlatform)
                    throw BadImage("it is for another system than iOS");
                forPhones_ = true;
                return;
            case encryption64:
                if (body.read<std::uint32_t>(16, "the encryption command") != 0)
                    throw BadImage("it is encrypted");
                return;
            case runPath:
            case exportsTrie:
                return;
            default:
                if (command & required)
                    throw BadImage("it needs load command " + hexadecimal(command) +
                                   ", which is not known here");
        }
    }

    // A part of the file that a command names by offset and size, in that order.
    Bytes linkData(Bytes body, std::uint64_t at, std::string_view what) const {
        return file_.bytes.part(body.read<std::uint32_t>(at, what),
                                body.read<std::uint32_t>(at + 4, what), what);
    }

    void readSegment(Bytes body) {
        constexpr std::uint64_t sectionsStart = 72;
        constexpr std::uint64_t sectionSize = 80;
        constexpr std::string_view what = "a segment command";
        file_.segments.push_back({.name = body.field(8, 16, what),
                                  .address = body.read<std::uint64_t>(24, what),
                                  .memorySize = body.read<std::uint64_t>(32, what),
                                  .fileOffset = body.read<std::uint64_t>(40, what),
                                  .fileSize = body.read<std::uint64_t>(48, what),
                                  .protection = body.read<std::uint32_t>(60, what)});
        const auto sections = body.read<std::uint32_t>(64, what);
        for (std::uint64_t index = 0; index < sections; ++index) {
            const Bytes section =
                body.part(sectionsStart + index * sectionSize, sectionSize, "a section");
            file_.sections.push_back({.segment = section.field(16, 16, what),
                                      .name = section.field(0, 16, what),
                                      .address = section.read<std::uint64_t>(32, what),
                                      .size = section.read<std::uint64_t>(40, what),
                                      .flags = section.read<std::uint32_t>(64, what)});
        }
    }

    void readLibrary(Bytes body) {
        constexpr std::string_view what = "the name of a library";
        file_.libraries.push_back(body.text(body.read<std::uint32_t>(8, what), what));
    }

    void readDyldInfo(Bytes body) {
        file_.dyldInfo = DyldInfo{.rebase = linkData(body, 8, "the rebase opcodes"),
                                  .bind = linkData(body, 16, "the bind opcodes"),
                                  .weakBind = linkData(body, 24, "the weak bind opcodes"),
                                  .lazyBind = linkData(body, 32, "the lazy bind opcodes")};
    }

    // Keeps the symbols that are external and defined in a section.
    void readSymbols(Bytes body) {
        constexpr std::uint64_t entrySize = 16;
        constexpr std::uint8_t debugging = 0xe0;
        constexpr std::uint8_t typeMask = 0x0e;
        constexpr std::uint8_t inSection = 0x0e;
        constexpr std::uint8_t external = 0x01;
        constexpr std::string_view what = "the symbol table";
        const auto count = body.read<std::uint32_t>(12, what);
        const Bytes entries =
            file_.bytes.part(body.read<std::uint32_t>(8, what), count * entrySize, what);
        const Bytes names = linkData(body, 16, "the symbols' names");
        for (std::uint64_t at = 0; at < entries.size(); at += entrySize) {
            const auto type = entries.read<std::uint8_t>(at + 4, what);
            if ((type & debugging) || (type & typeMask) != inSection || !(type & external))
                continue;
            file_.symbols.emplace(names.text(entries.read<std::uint32_t>(at, what), what),
                                  entries.read<std::uint64_t>(at + 8, what));
        }
    }

    void checkSegments() {
        if (file_.segments.empty()) throw BadImage("it has no segments");
        std::uint64_t end = file_.segments.front().address;
        for (const Segment& segment : file_.segments) {
            const std::string name = "segment " + std::string(segment.name);
            if (segment.address % pageSize != 0)
                throw BadImage(name + " does not start on a page of 16 KiB");
            if (segment.address < end)
                throw BadImage(name + " does not lie after the one before it");
            if (segment.memorySize > largestImage ||
                segment.address - file_.start() > largestImage - segment.memorySize)
                throw BadImage(name + " lies beyond one GiB");
            if (segment.fileSize > segment.memorySize)
                throw BadImage(name + " is larger in the file than in memory");
            if ((segment.protection & canWrite) && (segment.protection & canExecute))
                throw BadImage(name + " is written and executed: no phone allows that");
            file_.bytes.part(segment.fileOffset, segment.fileSize, name);
            end = segment.address + segment.memorySize;
        }
    }

    void checkSections() const {
        for (const Section& section : file_.sections) {
            const std::string name =
                "section " + std::string(section.segment) + "," + std::string(section.name);
            if (section.size != 0 && !file_.segmentAt(section.address, section.size, false))
                throw BadImage(name + " lies outside the segments");
            if (section.size != 0 && std::ranges::count(compiledClasses, section.name) != 0)
                throw BadImage(name +
                               " has classes of a compiler; this phone runs those that code "
                               "registers");
        }
    }

    MachOFile file_;
    bool forPhones_ = false;
};

}  // namespace

const Section* MachOFile::section(std::string_view segment, std::string_view name) const {
    auto found = std::ranges::find_if(sections, [&](const Section& section) {
        return section.segment == segment && section.name == name;
    });
    return found == sections.end() ? nullptr : &*found;
}

const Segment* MachOFile::segmentAt(std::uint64_t address, std::uint64_t size, bool inFile) const {
    for (const Segment& segment : segments) {
        const std::uint64_t room = inFile ? segment.fileSize : segment.memorySize;
        if (address >= segment.address && address - segment.address <= room &&
            size <= room - (address - segment.address))
            return &segment;
    }
    return nullptr;
}

Bytes MachOFile::contents(std::uint64_t address, std::uint64_t size, std::string_view what) const {
    const Segment* segment = segmentAt(address, size, true);
    if (!segment)
        throw BadImage(std::string(what) + " at " + hexadecimal(address) +
                       " lies outside what the file holds");
    return bytes.part(segment->fileOffset + (address - segment->address), size, what);
}

MachOFile readMachO(std::span<const std::byte> bytes) { return ImageReader(bytes).read(); }

}  // namespace simulator::loader
