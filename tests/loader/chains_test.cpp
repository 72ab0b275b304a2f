// Fixups told as chains through the pointers themselves, in an image of eight pointers.
#include <gtest/gtest.h>

#include "simulator/loader/fixups.hpp"
#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

constexpr std::uint16_t absolute = 2;
constexpr std::uint16_t relative = 6;

// A pointer of a chain; `next` is in steps of four bytes.
std::uint64_t rebaseTo(std::uint64_t target, std::uint64_t next, std::uint64_t highByte = 0) {
    return target | highByte << 36 | next << 51;
}
std::uint64_t bindTo(std::uint64_t import, std::uint64_t next, std::uint64_t addend = 0) {
    return import | addend << 24 | next << 51 | std::uint64_t{1} << 63;
}

struct Chains {
    std::uint32_t version = 0;
    std::uint32_t importFormat = 1;
    std::uint32_t compression = 0;
    std::uint32_t importCount = 2;
    // Of library 1 "_f", of library 2 "_g" that may be missing. Names start behind a zero byte.
    List imports = u32(1 | 1u << 9) + u32(2 | 1u << 8 | 4u << 9);
    List names = List{0} + text("_f") + text("_g");
    std::uint16_t page = 0x4000;
    std::uint16_t format = relative;
    std::uint64_t segmentOffset = dataAddress;
    List pageStarts = u16(0);

    List build() const {
        constexpr std::uint32_t header = 28;
        const auto pages = static_cast<std::uint16_t>(pageStarts.size() / 2);
        const List segment = u32(0) + u16(page) + u16(format) + u64(segmentOffset) + u32(0) +
                             u16(pages) + pageStarts;
        // Three segments, of which the second has fixups.
        const List starts = u32(3) + u32(0) + u32(16) + u32(0) + segment;
        const auto importsAt = header + static_cast<std::uint32_t>(starts.size());
        const auto namesAt = importsAt + static_cast<std::uint32_t>(imports.size());
        return u32(version) + u32(header) + u32(importsAt) + u32(namesAt) + u32(importCount) +
               u32(importFormat) + u32(compression) + starts + imports + names;
    }
};

struct Sketch {
    ImageBuilder image;
    Chains chains;

    std::vector<std::byte> build() {
        image.chains = chains.build();
        return image.build();
    }
    std::string refusal() {
        const std::vector<std::byte> bytes = build();
        const MachOFile file = readMachO(bytes);
        try {
            readFixups(file);
            return "";
        } catch (const BadImage& error) {
            return error.what();
        }
    }
};

TEST(ChainsTest, AChainGoesFromPointerToPointer) {
    Sketch sketch;
    // From pointer 0 by two steps of four to pointer 1, by four to pointer 3, which is the last.
    sketch.image.pointers[0] = rebaseTo(0x4010, 2);
    sketch.image.pointers[1] = bindTo(0, 4, 3);
    sketch.image.pointers[3] = bindTo(1, 0);
    const std::vector<std::byte> bytes = sketch.build();
    const MachOFile file = readMachO(bytes);
    const Fixups fixups = readFixups(file);
    ASSERT_EQ(fixups.rebases.size(), 1u);
    EXPECT_EQ(fixups.rebases[0].address, 0x4000u);
    EXPECT_EQ(fixups.rebases[0].target, 0x4010u);
    ASSERT_EQ(fixups.binds.size(), 2u);
    EXPECT_EQ(fixups.binds[0].address, 0x4008u);
    EXPECT_EQ(fixups.binds[0].symbol, "_f");
    EXPECT_EQ(fixups.binds[0].library, 1);
    EXPECT_EQ(fixups.binds[0].addend, 3);
    EXPECT_FALSE(fixups.binds[0].optional);
    EXPECT_EQ(fixups.binds[1].address, 0x4018u);
    EXPECT_EQ(fixups.binds[1].symbol, "_g");
    EXPECT_EQ(fixups.binds[1].library, 2);
    EXPECT_TRUE(fixups.binds[1].optional);
}

TEST(ChainsTest, TheHighByteOfATargetIsKept) {
    for (std::uint16_t format : {absolute, relative}) {
        Sketch sketch;
        sketch.chains.format = format;
        sketch.image.pointers[0] = rebaseTo(0x4010, 0, 0x80);
        const std::vector<std::byte> bytes = sketch.build();
        const MachOFile file = readMachO(bytes);
        EXPECT_EQ(readFixups(file).rebases.at(0).target, 0x8000000000004010u);
    }
}

TEST(ChainsTest, ImportsMayCarryAddends) {
    Sketch sketch;
    sketch.image.pointers[0] = bindTo(0, 0);
    sketch.chains.importCount = 1;
    sketch.chains.importFormat = 2;
    sketch.chains.imports = u32(1 | 1u << 9) + u32(static_cast<std::uint32_t>(-5));
    std::vector<std::byte> bytes = sketch.build();
    MachOFile file = readMachO(bytes);
    EXPECT_EQ(readFixups(file).binds.at(0).addend, -5);

    sketch.chains.importFormat = 3;
    sketch.chains.imports = u64(0xfffd | 1ull << 32) + u64(1ull << 40);
    bytes = sketch.build();
    file = readMachO(bytes);
    const Bind bind = readFixups(file).binds.at(0);
    EXPECT_EQ(bind.addend, std::int64_t{1} << 40);
    EXPECT_EQ(bind.library, fromWeakDefinitions);
    EXPECT_EQ(bind.kind, Bind::Kind::weak);
}

TEST(ChainsTest, PagesWithoutFixupsArePassedOver) {
    Sketch sketch;
    sketch.chains.pageStarts = u16(0xffff);
    EXPECT_EQ(sketch.refusal(), "");
}

struct WrongChain {
    const char* name;
    void (*spoil)(Sketch&);
    const char* message;
};
class WrongChainsTest : public testing::TestWithParam<WrongChain> {};
TEST_P(WrongChainsTest, AreRefusedByName) {
    Sketch sketch;
    GetParam().spoil(sketch);
    EXPECT_EQ(sketch.refusal(), GetParam().message);
}
INSTANTIATE_TEST_SUITE_P(
    Kinds, WrongChainsTest,
    testing::Values(
        WrongChain{"version", [](Sketch& sketch) { sketch.chains.version = 1; },
                   "version 1 of chained fixups is unknown"},
        WrongChain{"compressed", [](Sketch& sketch) { sketch.chains.compression = 1; },
                   "the names in the chained fixups are compressed"},
        WrongChain{"importFormat", [](Sketch& sketch) { sketch.chains.importFormat = 4; },
                   "the imports of the chained fixups have unknown format 4"},
        WrongChain{"importCount", [](Sketch& sketch) { sketch.chains.importCount = 0xffffffff; },
                   "the file ends inside the chained fixups"},
        WrongChain{"signedPointers", [](Sketch& sketch) { sketch.chains.format = 12; },
                   "its pointers are signed: it is for arm64e"},
        WrongChain{"pointerFormat", [](Sketch& sketch) { sketch.chains.format = 3; },
                   "the chained fixups have unknown pointer format 3"},
        WrongChain{"page", [](Sketch& sketch) { sketch.chains.page = 0; },
                   "the pages of the chained fixups have no size"},
        WrongChain{"severalStarts", [](Sketch& sketch) { sketch.chains.pageStarts = u16(0x8001); },
                   "a page has several chains of fixups"},
        WrongChain{"startOutside", [](Sketch& sketch) { sketch.chains.pageStarts = u16(0x4000); },
                   "a chain of fixups starts outside its page"},
        WrongChain{"unknownImport", [](Sketch& sketch) { sketch.image.pointers[0] = bindTo(2, 0); },
                   "a chained pointer names import 2 of 2"},
        WrongChain{"unknownLibrary",
                   [](Sketch& sketch) { sketch.chains.imports = u32(3) + u32(1); },
                   "a symbol is bound to library 3 of 2"},
        // From pointer 7 one step on: half of it would lie behind the file's data.
        WrongChain{"outOfTheSegment",
                   [](Sketch& sketch) {
                       sketch.chains.pageStarts = u16(0x38);
                       sketch.image.pointers[7] = rebaseTo(0, 1);
                   },
                   "a chained pointer at 0x403c lies outside what the file holds"},
        WrongChain{"code", [](Sketch& sketch) { sketch.chains.segmentOffset = 0; },
                   "a fixup lies in segment __TEXT, which is not written"},
        WrongChain{"both",
                   [](Sketch& sketch) {
                       sketch.image.extraCommand = u32(0x80000022) + u32(48) + List(40, 0);
                   },
                   "it has both opcodes and chains of fixups"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace simulator::loader::tests
