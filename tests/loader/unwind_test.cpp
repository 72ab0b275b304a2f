// From a phone's unwind information to frame descriptions.
#include "simulator/loader/unwind.hpp"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

// Frame pointer, with x19 and x20 saved; and no frame, 32 bytes of stack.
constexpr std::uint32_t framed = 0x04000001;
constexpr std::uint32_t frameless = 0x02002000;

// The list of rebases lies first of the links, and ends for its reader with the version's byte 1.
std::vector<UnwindEntry> entriesOf(const List& information) {
    ImageBuilder image;
    image.rebase = information;
    image.sections = {{"__TEXT", "__unwind_info", linkAddress, information.size()}};
    const std::vector<std::byte> bytes = image.build();
    return readUnwindInfo(readMachO(bytes));
}

// One first-level page; functions at 0x100 and 0x140, the last ends at 0x180.
List information(const List& page, const List& common = u32(framed)) {
    const auto commonCount = static_cast<std::uint32_t>(common.size() / 4);
    const auto index = 28 + static_cast<std::uint32_t>(common.size());
    const List header = u32(1) + u32(28) + u32(commonCount) + u32(0) + u32(0) + u32(index) + u32(2);
    return header + common + u32(0x100) + u32(index + 24) + u32(0) + u32(0x180) + u32(0) + u32(0) +
           page;
}

// The page's own encodings lie 20 bytes from its start; the common one is number 0.
const List compressed = u32(3) + u16(12) + u16(2) + u16(20) + u16(1) + u32(0x00000000) +
                        u32(0x01000040) + u32(frameless);
const List regular =
    u32(2) + u16(8) + u16(2) + u32(0x100) + u32(framed) + u32(0x140) + u32(frameless);

class PageTest : public testing::TestWithParam<List> {};
TEST_P(PageTest, BothFormsAreRead) {
    const std::vector<UnwindEntry> entries = entriesOf(information(GetParam()));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].start, 0x100u);
    EXPECT_EQ(entries[0].end, 0x140u);
    EXPECT_EQ(entries[0].encoding, framed);
    EXPECT_EQ(entries[1].start, 0x140u);
    EXPECT_EQ(entries[1].end, 0x180u);
    EXPECT_EQ(entries[1].encoding, frameless);
}
INSTANTIATE_TEST_SUITE_P(Forms, PageTest, testing::Values(compressed, regular));

TEST(UnwindTest, AnImageWithoutInformationHasNone) {
    const std::vector<std::byte> bytes = ImageBuilder{}.build();
    EXPECT_TRUE(readUnwindInfo(readMachO(bytes)).empty());
}

TEST(UnwindTest, EncodingsThatAreNotThereAreRefused) {
    const List page = u32(3) + u16(12) + u16(1) + u16(16) + u16(0) + u32(0x05000000);
    EXPECT_THROW(entriesOf(information(page)), BadImage);
}

TEST(UnwindTest, UnknownPagesAndVersionsAreRefused) {
    EXPECT_THROW(entriesOf(information(u32(7) + u32(0))), BadImage);
    List later = information(regular);
    later[0] = 2;
    EXPECT_THROW(entriesOf(later), BadImage);
}

// What a description says after its head: length, link, start, size, no augmentation.
List descriptionOf(std::uint32_t encoding) {
    const auto bytes = frameDescriptions({{0x100, 0x140, encoding}}, 0x10000);
    std::uint32_t common = 0;
    std::memcpy(&common, bytes.data(), sizeof common);
    List description;
    for (std::size_t at = common + 4; at < bytes.size(); ++at)
        description.push_back(std::to_integer<std::uint8_t>(bytes[at]));
    return description;
}

TEST(FrameDescriptionTest, AFrameHasItsCallersWordsAndTheSavedPairs) {
    // The frame's address is x29 + 16; below it lie x30, x29, x19 and x20, d8 and d9 (72 and 73).
    const List rules = {0x0c,      29, 16,   0x80 | 30, 1, 0x80 | 29, 2,  0x80 | 19, 3,
                        0x80 | 20, 4,  0x05, 72,        5, 0x05,      73, 6};
    // 4 + 4 + 8 + 8 + 1 + 17 = 42, filled up to 48; the common record takes 24 before it.
    const List expected =
        u32(44) + u32(28) + u64(0x10100) + u64(0x40) + List{0} + rules + List(6, 0) + u32(0);
    EXPECT_EQ(descriptionOf(framed | 0x100), expected);
}

TEST(FrameDescriptionTest, WithoutAFrameTheStackPointerTells) {
    // 4 + 4 + 8 + 8 + 1 + 3 = 28, filled up to 32.
    const List expected =
        u32(28) + u32(28) + u64(0x10100) + u64(0x40) + List{0, 0x0c, 31, 32} + List(4, 0) + u32(0);
    EXPECT_EQ(descriptionOf(frameless), expected);
}

TEST(FrameDescriptionTest, WhatIsNotKnownIsLeftOut) {
    EXPECT_EQ(descriptionOf(0), u32(0));
    EXPECT_EQ(descriptionOf(0x05000010), u32(0));
}

// A common part as clang writes it (20 bytes), and behind it the description of a function that saves
// where it returns to, 16 bytes below its caller's stack.
const List common = u32(16) + u32(0) + List{1, 'z', 'R', 0, 1, 0x78, 30, 1, 0x10, 0x0c, 31, 0};
const List instructions = {0x0e, 16, 0x80 | 30, 2, 0, 0, 0};
const List frameDescription = u32(28) + u32(24) + u64(0) + u64(0x40) + List{0} + instructions;

// One function, at 0x100, whose description is at that place.
std::vector<UnwindEntry> entriesWith(const List& descriptions, std::uint32_t place) {
    const List page = u32(2) + u16(8) + u16(1) + u32(0x100) + u32(0x03000000 | place);
    const List unwind = information(page);
    ImageBuilder image;
    image.rebase = unwind + descriptions;
    image.sections = {{"__TEXT", "__unwind_info", linkAddress, unwind.size()},
                      {"__TEXT", "__eh_frame", linkAddress + unwind.size(), descriptions.size()}};
    static std::vector<std::byte> bytes;  // the entries look into it
    bytes = image.build();
    return readUnwindInfo(readMachO(bytes));
}

TEST(FrameDescriptionTest, WhatTheImageDescribesItselfIsTakenOver) {
    const auto bytes = frameDescriptions(entriesWith(common + frameDescription, 20), 0x10000);
    // The common record takes 24 bytes; 4 + 4 + 8 + 8 + 1 + 7 = 32.
    const List expected =
        u32(28) + u32(28) + u64(0x10100) + u64(0x80) + List{0} + instructions + u32(0);
    List found;
    for (std::size_t at = 24; at < bytes.size(); ++at)
        found.push_back(std::to_integer<std::uint8_t>(bytes[at]));
    EXPECT_EQ(found, expected);
}

TEST(FrameDescriptionTest, DescriptionsOfAnotherFormAreRefused) {
    List other = common;
    other[15] = 0x1b;  // addresses of four bytes
    EXPECT_NO_THROW(entriesWith(common + frameDescription, 20));
    EXPECT_THROW(entriesWith(other + frameDescription, 20), BadImage);
}

TEST(FrameDescriptionTest, DescriptionsThatAreNotThereAreRefused) {
    EXPECT_THROW(entriesWith(common + frameDescription, 400), BadImage);
    EXPECT_THROW(entriesWith({}, 0), BadImage);
    List before = common + frameDescription;
    before[24] = 0x7f;  // the link leads before the section
    EXPECT_THROW(entriesWith(before, 20), BadImage);
}

}  // namespace
}  // namespace simulator::loader::tests
