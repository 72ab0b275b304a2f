#include "simulator/loader/library.hpp"

#include <sys/auxv.h>
#include <sys/mman.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "platform/runtime.hpp"
#include "simulator/loader/placement.hpp"
#include "simulator/loader/signed_image.hpp"
#include "simulator/loader/system_symbols.hpp"
#include "simulator/loader/unwind.hpp"

extern "C" void __register_frame(void* begin);

namespace simulator::loader {

namespace {

std::vector<std::byte> readFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::vector<char> text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) throw BadImage("it cannot be read");
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

constexpr bool runsHere() {
#if defined(__aarch64__)
    return true;
#else
    return false;
#endif
}

// The processor signs by itself; where there is none that can, no library runs either.
std::uint64_t processorSigns([[maybe_unused]] std::uint64_t pointer,
                             [[maybe_unused]] const Signing& signing,
                             [[maybe_unused]] std::uint64_t place) {
#if defined(__aarch64__)
    return signedFor(pointer, signing, place);
#else
    return 0;
#endif
}

bool processorCanSign() {
#if defined(__aarch64__)
    return (getauxval(AT_HWCAP) & HWCAP_PACA) != 0;
#else
    return false;
#endif
}

// The image in memory of its own.
class Image {
  public:
    Image(const MachOFile& file, const Fixups& fixups) : file_(file), fixups_(fixups) {
        if (static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) > pageSize)
            throw BadImage("this machine's pages are larger than the 16 KiB of a phone");
        void* start = mmap(nullptr, file.memorySize(), PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (start == MAP_FAILED) throw BadImage("there is no memory for it");
        memory_ = {static_cast<std::byte*>(start), file.memorySize()};
    }

    void fill() {
        copySegments(file_, memory_);
        if (file_.signsPointers) setSignedImage(memory_);
        applyFixups(file_, fixups_, memory_, systemSymbol, processorSigns);
        for (const SelectorReference& reference : selectorReferences(file_, fixups_)) {
            SEL selector = sel_registerName(std::string(reference.name).c_str());
            std::memcpy(at(reference.address), &selector, sizeof selector);
        }
        auto* begin = reinterpret_cast<char*>(memory_.data());
        __builtin___clear_cache(begin, begin + memory_.size());
    }

    void protect() const {
        for (const Segment& segment : file_.segments) {
            int protection = PROT_NONE;
            if (segment.protection & canRead) protection |= PROT_READ;
            if (segment.protection & canWrite) protection |= PROT_WRITE;
            if (segment.protection & canExecute) protection |= PROT_EXEC;
            if (segment.memorySize == 0) continue;
            if (mprotect(at(segment.address), segment.memorySize, protection) != 0)
                throw BadImage("segment " + std::string(segment.name) + " cannot be protected");
        }
    }

    // For the life of the process: the unwinder keeps the descriptions.
    void describeFrames() const {
        const auto slide = reinterpret_cast<std::uintptr_t>(memory_.data()) - file_.start();
        auto& frames = *new std::vector<std::byte>(frameDescriptions(readUnwindInfo(file_), slide));
        __register_frame(frames.data());
    }

    // By plain addresses: that they are signed as they should be was looked at before.
    void run() const {
        for (std::uint64_t address : initialisers(file_, fixups_))
            reinterpret_cast<void (*)()>(at(address))();
    }

  private:
    std::byte* at(std::uint64_t address) const { return &memory_[address - file_.start()]; }

    const MachOFile& file_;
    const Fixups& fixups_;
    Memory memory_;
};

}  // namespace

void loadMachO(const std::filesystem::path& path, Process process) {
    const std::vector<std::byte> bytes = readFile(path);
    const MachOFile file = readMachO(sliceFor(Bytes(bytes), process).span());
    if (file.signsPointers != (process == Process::arm64e))
        throw BadImage("it is for " + std::string(file.signsPointers ? "arm64e" : "arm64") +
                       ", and this phone runs SpringBoard as " + std::string(nameOf(process)));
    const Fixups fixups = readFixups(file);
    initialisers(file, fixups);
    if (!runsHere())
        throw BadImage("it is for arm64: the phone built for arm64 runs it (scripts/test-device)");
    if (file.signsPointers && !processorCanSign())
        throw BadImage("it is for arm64e, and this processor does not sign pointers");
    Image image(file, fixups);
    image.fill();
    image.protect();
    image.describeFrames();
    image.run();
}

}  // namespace simulator::loader
