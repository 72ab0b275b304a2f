// Reading a library's header and load commands, and refusing every file that is none.
#include "simulator/loader/macho_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

std::string refusal(const std::vector<std::byte>& bytes) {
    try {
        readMachO(bytes);
        return "";
    } catch (const BadImage& error) {
        return error.what();
    }
}

std::vector<std::byte> bytesOf(const List& list) {
    std::vector<std::byte> bytes(list.size());
    std::transform(list.begin(), list.end(), bytes.begin(),
                   [](std::uint8_t byte) { return std::byte{byte}; });
    return bytes;
}

TEST(MachOFileTest, SegmentsSectionsLibrariesAndSymbolsAreRead) {
    ImageBuilder image;
    image.sections = {{"__DATA", "__const", 0x4008, 16, 0x9}};
    image.symbols = {{"_one", 0x20}, {"_two", 0x4000}};
    const std::vector<std::byte> bytes = image.build();
    const MachOFile file = readMachO(bytes);
    ASSERT_EQ(file.segments.size(), 3u);
    EXPECT_EQ(file.segments[1].name, "__DATA");
    EXPECT_EQ(file.segments[1].address, 0x4000u);
    EXPECT_EQ(file.segments[1].memorySize, 0x4000u);
    EXPECT_EQ(file.segments[1].fileSize, 64u);
    EXPECT_EQ(file.segments[1].protection, canRead | canWrite);
    EXPECT_EQ(file.start(), 0u);
    EXPECT_EQ(file.memorySize(), 0xc000u);
    ASSERT_NE(file.section("__DATA", "__const"), nullptr);
    EXPECT_EQ(file.section("__DATA", "__const")->type(), 9u);
    EXPECT_EQ(file.section("__DATA", "__data"), nullptr);
    EXPECT_EQ(file.libraries, (std::vector<std::string_view>{"/usr/lib/libSystem.B.dylib",
                                                             "/usr/lib/libobjc.A.dylib"}));
    EXPECT_EQ(file.symbols.at("_two"), 0x4000u);
}

TEST(MachOFileTest, ContentsEndWithWhatTheFileHolds) {
    ImageBuilder image;
    image.pointers[7] = 0x1234;
    const std::vector<std::byte> bytes = image.build();
    const MachOFile file = readMachO(bytes);
    EXPECT_EQ(file.contents(0x4038, 8, "it").read<std::uint64_t>(0, "it"), 0x1234u);
    EXPECT_THROW(file.contents(0x4039, 8, "it"), BadImage);
    EXPECT_THROW(file.contents(0x3fff, 8, "it"), BadImage);
    EXPECT_THROW(file.contents(~std::uint64_t{0}, 8, "it"), BadImage);
    EXPECT_NE(file.segmentAt(0x4040, 8, false), nullptr);
    EXPECT_EQ(file.segmentAt(0x4040, 8, true), nullptr);
}

struct Foreign {
    const char* name;
    List start;
    const char* message;
};
class ForeignFileTest : public testing::TestWithParam<Foreign> {};
TEST_P(ForeignFileTest, IsRefusedByName) {
    List list = GetParam().start;
    if (!list.empty()) list.resize(64);
    EXPECT_EQ(refusal(bytesOf(list)), GetParam().message);
}
INSTANTIATE_TEST_SUITE_P(
    Kinds, ForeignFileTest,
    testing::Values(Foreign{"empty", {}, "it is empty"},
                    Foreign{"fat",
                            {0xca, 0xfe, 0xba, 0xbe},
                            "it holds several architectures (fat file) in one another"},
                    Foreign{"elf",
                            {0x7f, 'E', 'L', 'F'},
                            "it is an ELF file: a library for Linux, not for a phone"},
                    Foreign{"narrow", {0xce, 0xfa, 0xed, 0xfe}, "it is for 32-bit machines"},
                    Foreign{"turned", {0xfe, 0xed, 0xfa, 0xcf}, "it is for big-endian machines"},
                    Foreign{"text", {'n', 'o', 'n', 'e'}, "it is no Mach-O file"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(MachOFileTest, LessThanAMagicNumberIsRefused) {
    EXPECT_EQ(refusal(bytesOf({0xcf, 0xfa})), "the file ends inside its first four bytes");
}

struct Wrong {
    const char* name;
    void (*spoil)(ImageBuilder&);
    const char* message;
};
class WrongImageTest : public testing::TestWithParam<Wrong> {};
TEST_P(WrongImageTest, IsRefusedByName) {
    ImageBuilder image;
    GetParam().spoil(image);
    EXPECT_EQ(refusal(image.build()), GetParam().message);
}
INSTANTIATE_TEST_SUITE_P(
    Kinds, WrongImageTest,
    testing::Values(
        Wrong{"anotherProcessor", [](ImageBuilder& image) { image.machine = 0x01000007; },
              "it is for another processor than arm64"},
        Wrong{"arm64eOfLaterSystems", [](ImageBuilder& image) { image.subtype = 0x80000002; },
              "it is for arm64e with a version (0x80000002), which only iOS 14 takes"},
        Wrong{"unknownArm64", [](ImageBuilder& image) { image.subtype = 7; },
              "it is for an unknown kind of arm64, 0x7"},
        Wrong{"program", [](ImageBuilder& image) { image.type = 2; }, "it is no dynamic library"},
        Wrong{"noSystem", [](ImageBuilder& image) { image.platformCommand = 0; },
              "it does not say that it is for iOS"},
        Wrong{"anotherSystem",
              [](ImageBuilder& image) {
                  image.platformCommand = 0x32;
                  image.platform = 1;
              },
              "it is for another system than iOS"},
        Wrong{"encrypted",
              [](ImageBuilder& image) {
                  image.extraCommand = u32(0x2c) + u32(24) + u32(0) + u32(0) + u32(1) + u32(0);
              },
              "it is encrypted"},
        Wrong{"unknownCommand",
              [](ImageBuilder& image) { image.extraCommand = u32(0x80000077) + u32(8); },
              "it needs load command 0x80000077, which is not known here"},
        Wrong{"commandWithoutSize",
              [](ImageBuilder& image) { image.extraCommand = u32(0x77) + u32(0); },
              "load command 8 has a wrong size"},
        Wrong{"oddAddress", [](ImageBuilder& image) { image.dataStart = 0x4008; },
              "segment __DATA does not start on a page of 16 KiB"},
        Wrong{"overlap", [](ImageBuilder& image) { image.dataMemorySize = 0x8000; },
              "segment __LINKEDIT does not lie after the one before it"},
        Wrong{"endless", [](ImageBuilder& image) { image.dataMemorySize = ~std::uint64_t{0}; },
              "segment __DATA lies beyond one GiB"},
        Wrong{"smallerInMemory", [](ImageBuilder& image) { image.dataMemorySize = 8; },
              "segment __DATA is larger in the file than in memory"},
        Wrong{"writtenAndExecuted", [](ImageBuilder& image) { image.dataProtection = 7; },
              "segment __DATA is written and executed: no phone allows that"},
        Wrong{"sectionOutside",
              [](ImageBuilder& image) { image.sections = {{"__DATA", "__data", 0x7ff0, 0x20}}; },
              "section __DATA,__data lies outside the segments"},
        Wrong{"compiledClasses",
              [](ImageBuilder& image) {
                  image.sections = {{"__DATA", "__objc_classlist", 0x4000, 8}};
              },
              "section __DATA,__objc_classlist has classes of a compiler; this phone runs those "
              "that code registers"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(MachOFileTest, SignedPointersAreTold) {
    ImageBuilder image;
    const std::vector<std::byte> plain = image.build();
    EXPECT_FALSE(readMachO(plain).signsPointers);
    image.subtype = 2;
    const std::vector<std::byte> withSigned = image.build();
    EXPECT_TRUE(readMachO(withSigned).signsPointers);
}

TEST(MachOFileTest, UnknownCommandsThatNeedNotBeKnownArePassedOver) {
    ImageBuilder image;
    image.extraCommand = u32(0x77) + u32(16) + u64(0);
    EXPECT_EQ(refusal(image.build()), "");
}

TEST(MachOFileTest, BuildVersionOfAPhoneIsTaken) {
    ImageBuilder image;
    image.platformCommand = 0x32;
    EXPECT_EQ(refusal(image.build()), "");
}

TEST(MachOFileTest, EveryTruncationIsRefused) {
    ImageBuilder image;
    image.rebase = {0x11, 0x21, 0x00, 0x51, 0x00};
    image.symbols = {{"_one", 0x20}};
    const std::vector<std::byte> bytes = image.build();
    ASSERT_EQ(refusal(bytes), "");
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        // A copy of its own, so that the sanitizer sees any byte read behind its end.
        const std::vector<std::byte> cut(bytes.begin(),
                                         bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_NE(refusal(cut), "") << length << " of " << bytes.size() << " bytes";
    }
}

}  // namespace
}  // namespace simulator::loader::tests
