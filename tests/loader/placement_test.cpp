// An image in plain memory: segments, pointers, and what runs first.
#include "simulator/loader/placement.hpp"

#include <gtest/gtest.h>

#include <map>

#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

constexpr std::uint32_t initialiserPointers = 9;
constexpr std::uint32_t initialiserOffsets = 0x16;

// Stands in for the processor: a mark that tells key, number and place.
std::uint64_t markSigned(std::uint64_t pointer, const Signing& signing, std::uint64_t place) {
    return pointer ^ signing.modifier(place) ^ std::uint64_t{signing.key} << 60;
}

// Puts an image together in memory of its own, with a system of two symbols.
class Placed {
  public:
    explicit Placed(const ImageBuilder& image)
        : bytes_(image.build()),
          file_(readMachO(bytes_)),
          fixups_(readFixups(file_)),
          memory_(file_.memorySize()) {
        copySegments(file_, memory_);
    }
    void fill() {
        const auto find = [&](std::string_view name) -> const void* {
            if (name == "f") return &f_;
            if (name == "dyld_stub_binder") return &g_;
            return nullptr;
        };
        applyFixups(file_, fixups_, memory_, find, markSigned);
    }
    std::string refusal() {
        try {
            fill();
            return "";
        } catch (const BadImage& error) {
            return error.what();
        }
    }
    std::uint64_t pointer(std::size_t index) const {
        std::uint64_t value = 0;
        std::memcpy(&value, &memory_[dataAddress + index * sizeof value], sizeof value);
        return value;
    }
    std::uint64_t at(std::uint64_t address) const {
        return reinterpret_cast<std::uintptr_t>(memory_.data()) + address;
    }
    std::uint64_t f() const { return reinterpret_cast<std::uintptr_t>(&f_); }
    std::uint64_t binder() const { return reinterpret_cast<std::uintptr_t>(&g_); }
    const MachOFile& file() const { return file_; }
    const Fixups& fixups() const { return fixups_; }

  private:
    int f_ = 0;
    int g_ = 0;
    std::vector<std::byte> bytes_;
    MachOFile file_;
    Fixups fixups_;
    std::vector<std::byte> memory_;
};

TEST(PlacementTest, PointersIntoTheImageMoveWithIt) {
    ImageBuilder image;
    image.pointers = {0x4010, 0x77};
    image.rebase = {0x11, 0x21, 0x00, 0x51};
    Placed placed(image);
    placed.fill();
    EXPECT_EQ(placed.pointer(0), placed.at(0x4010));
    EXPECT_EQ(placed.pointer(1), 0x77u);
}

TEST(PlacementTest, SymbolsAreLookedUpWithoutTheUnderscoreOfC) {
    ImageBuilder image;
    image.bind = List{0x11, 0x40} + text("_f") +
                 List{0x60, 0x04, 0x71, 0x00, 0x90, 0x60, 0x00, 0x40} + text("dyld_stub_binder") +
                 List{0x90};
    Placed placed(image);
    placed.fill();
    EXPECT_EQ(placed.pointer(0), placed.f() + 4);
    EXPECT_EQ(placed.pointer(1), placed.binder());
}

TEST(PlacementTest, SymbolsOfTheImageItselfComeFromIt) {
    ImageBuilder image;
    image.symbols = {{"_own", 0x4020}};
    image.bind = List{0x10, 0x40} + text("_own") + List{0x71, 0x00, 0x90};
    Placed placed(image);
    placed.fill();
    EXPECT_EQ(placed.pointer(0), placed.at(0x4020));
}

TEST(PlacementTest, MissingSymbolsAreNamedWithTheirLibraries) {
    ImageBuilder image;
    image.bind = List{0x11, 0x40} + text("_g") + List{0x71, 0x00, 0x90, 0x90, 0x12, 0x40} +
                 text("_h") + List{0x90};
    EXPECT_EQ(Placed(image).refusal(),
              "no such symbol: _g (of /usr/lib/libSystem.B.dylib) _h (of "
              "/usr/lib/libobjc.A.dylib)");
}

TEST(PlacementTest, OptionalSymbolsAreZeroWhenMissing) {
    ImageBuilder image;
    image.pointers[0] = 0x77;
    image.bind = List{0x11, 0x41} + text("_g") + List{0x71, 0x00, 0x90};
    Placed placed(image);
    placed.fill();
    EXPECT_EQ(placed.pointer(0), 0u);
}

TEST(PlacementTest, AnotherWeakDefinitionWinsElseTheImagesOwnStays) {
    ImageBuilder image;
    image.pointers = {0x4010, 0x4010};
    image.rebase = {0x11, 0x21, 0x00, 0x52};
    image.weakBind =
        List{0x3d, 0x40} + text("_f") + List{0x71, 0x00, 0x90, 0x40} + text("_g") + List{0x90};
    Placed placed(image);
    placed.fill();
    EXPECT_EQ(placed.pointer(0), placed.f());
    EXPECT_EQ(placed.pointer(1), placed.at(0x4010));
}

constexpr std::uint64_t isSigned = 1ull << 63;
constexpr std::uint64_t isBind = 1ull << 62;
constexpr std::uint64_t toNext = 1ull << 51;

// An arm64e image with one thread from its first pointer on, and _f as its only symbol.
ImageBuilder threaded(std::array<std::uint64_t, 8> pointers) {
    ImageBuilder image;
    image.subtype = 2;
    image.bind = List{0xd0, 0x01, 0x11, 0x40} + text("_f") + List{0x90, 0x71, 0x00, 0xd1};
    image.pointers = pointers;
    return image;
}

TEST(PlacementTest, PointersAreSignedForWhereTheyLie) {
    // Key DA and number 0x6ae1, by place: to the third pointer; then a plain one to the same; then a
    // symbol with key IB and number 7.
    const std::uint64_t byPlace = isSigned | 2ull << 49 | 1ull << 48 | 0x6ae1ull << 32;
    const std::uint64_t bound = isSigned | isBind | 1ull << 49 | 7ull << 32;
    Placed placed(threaded({byPlace | 0x4010 | toNext, 0x4010 | toNext, bound}));
    placed.fill();
    const std::uint64_t place = placed.at(dataAddress) & 0x0000ffffffffffff;
    EXPECT_EQ(placed.pointer(0), placed.at(0x4010) ^ (place | 0x6ae1ull << 48) ^ 2ull << 60);
    EXPECT_EQ(placed.pointer(1), placed.at(0x4010));
    EXPECT_EQ(placed.pointer(2), placed.f() ^ 7 ^ 1ull << 60);
}

// The address of the code of an image that has one section of initialisers.
std::uint64_t codeOf(ImageBuilder& image, std::uint32_t kind, std::uint64_t size) {
    image.sections = {{"__DATA", "__init", dataAddress, size, kind}};
    return image.codeAddress();
}

TEST(InitialisersTest, PointersAreTakenInOrder) {
    ImageBuilder image;
    image.rebase = {0x11, 0x21, 0x00, 0x52};
    const std::uint64_t code = codeOf(image, initialiserPointers, 16);
    image.pointers = {code + 4, code};
    Placed placed(image);
    EXPECT_EQ(initialisers(placed.file(), placed.fixups()),
              (std::vector<std::uint64_t>{code + 4, code}));
}

TEST(InitialisersTest, OffsetsAreTakenInOrder) {
    ImageBuilder image;
    const std::uint64_t code = codeOf(image, initialiserOffsets, 8);
    image.pointers = {(code + 4) | code << 32};
    Placed placed(image);
    EXPECT_EQ(initialisers(placed.file(), placed.fixups()),
              (std::vector<std::uint64_t>{code + 4, code}));
}

TEST(InitialisersTest, PointersThatDoNotMoveAreRefused) {
    ImageBuilder image;
    image.pointers = {codeOf(image, initialiserPointers, 8)};
    Placed placed(image);
    EXPECT_THROW(initialisers(placed.file(), placed.fixups()), BadImage);
}

// What the initialisers of an arm64e image come to whose one pointer has these bits above the code.
std::string signedInitialiser(std::uint64_t bits, std::uint32_t kind = initialiserPointers) {
    ImageBuilder image = threaded({});
    const std::uint64_t code = codeOf(image, kind, kind == initialiserPointers ? 8 : 4);
    image.pointers[0] = code | bits;
    Placed placed(image);
    try {
        EXPECT_EQ(initialisers(placed.file(), placed.fixups()), std::vector{code});
        return "";
    } catch (const BadImage& error) {
        return error.what();
    }
}

TEST(InitialisersTest, OnArm64eTheyAreSignedAsFunctionsOfC) {
    constexpr const char* refused =
        "an initialiser is not signed as a function of C: a phone stops there";
    EXPECT_EQ(signedInitialiser(isSigned), "");
    EXPECT_EQ(signedInitialiser(0), refused);
    EXPECT_EQ(signedInitialiser(isSigned | 0xd9d4ull << 32), refused);
    EXPECT_EQ(signedInitialiser(isSigned | 1ull << 48), refused);
    EXPECT_EQ(signedInitialiser(isSigned | 2ull << 49), refused);
}

TEST(InitialisersTest, OnArm64eTheyAreNoOffsets) {
    EXPECT_EQ(signedInitialiser(0, initialiserOffsets),
              "its initialisers are offsets, which iOS before 13.4 calls unsigned");
}

TEST(InitialisersTest, DataIsNoInitialiser) {
    ImageBuilder image;
    codeOf(image, initialiserOffsets, 4);
    image.pointers = {dataAddress};
    Placed placed(image);
    EXPECT_THROW(initialisers(placed.file(), placed.fixups()), BadImage);
}

// A reference to "frame", whose letters and zero byte are the second number, and whatever else.
ImageBuilder withReference() {
    ImageBuilder image;
    image.sections = {{"__DATA", "__objc_selrefs", dataAddress, 8}};
    image.pointers = {dataAddress + 8, 0x000000656d617266};
    image.rebase = {0x11, 0x21, 0x00, 0x51};
    return image;
}

TEST(SelectorReferencesTest, TheRuntimePassesOverAnImageThatDoesNotAskForIt) {
    Placed placed(withReference());
    EXPECT_TRUE(selectorReferences(placed.file(), placed.fixups()).empty());
}

TEST(SelectorReferencesTest, NamesAreReadWhereTheirPointersLead) {
    ImageBuilder image = withReference();
    image.sections.push_back({"__DATA", "__objc_imageinfo", dataAddress + 16, 8});
    Placed placed(image);
    const auto references = selectorReferences(placed.file(), placed.fixups());
    ASSERT_EQ(references.size(), 1u);
    EXPECT_EQ(references[0].address, dataAddress);
    EXPECT_EQ(references[0].name, "frame");
}

}  // namespace
}  // namespace simulator::loader::tests
