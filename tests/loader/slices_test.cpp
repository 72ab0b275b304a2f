// Which part of a file for several processors a phone takes.
#include "simulator/loader/slices.hpp"

#include <gtest/gtest.h>

#include "simulator/loader/macho_file.hpp"
#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

std::vector<std::byte> image(std::uint32_t subtype) {
    ImageBuilder builder;
    builder.subtype = subtype;
    return builder.build();
}

// The subtype of what such a process takes, or why it takes nothing.
std::string taken(const std::vector<std::byte>& file, Process process) {
    try {
        return hexadecimal(sliceFor(Bytes(file), process).read<std::uint32_t>(8, "the header"));
    } catch (const BadImage& error) {
        return error.what();
    }
}

TEST(SlicesTest, EachProcessTakesItsOwn) {
    for (const auto& file :
         {fatFile({{0, image(0)}, {2, image(2)}}), fatFile({{2, image(2)}, {0, image(0)}})}) {
        EXPECT_EQ(taken(file, Process::arm64), "0x0");
        EXPECT_EQ(taken(file, Process::arm64e), "0x2");
        const auto part = sliceFor(Bytes(file), Process::arm64e);
        EXPECT_EQ(part.size(), image(2).size());
        EXPECT_TRUE(readMachO(part.span()).signsPointers);
    }
}

TEST(SlicesTest, NothingIsTakenForAnother) {
    const auto file = fatFile({{0, image(0)}});
    EXPECT_EQ(taken(file, Process::arm64e), "it holds nothing for arm64e");
    EXPECT_EQ(taken(fatFile({}), Process::arm64), "it holds nothing for arm64");
}

// Only iOS 14 takes the version off before it compares.
TEST(SlicesTest, SubtypesAreComparedWithTheirVersion) {
    const auto file = fatFile({{0, image(0)}, {0x80000002, image(0x80000002)}});
    EXPECT_EQ(taken(file, Process::arm64e), "it holds nothing for arm64e");
}

TEST(SlicesTest, TheFirstOfSeveralIsTaken) {
    std::vector<std::byte> longer = image(2);
    longer.resize(longer.size() + 8);
    const auto file = fatFile({{2, longer}, {2, image(2)}});
    EXPECT_EQ(sliceFor(Bytes(file), Process::arm64e).size(), longer.size());
}

TEST(SlicesTest, WhatIsNotFatIsTakenWhole) {
    const auto file = image(0);
    EXPECT_EQ(sliceFor(Bytes(file), Process::arm64e).size(), file.size());
    EXPECT_EQ(sliceFor(Bytes(), Process::arm64).size(), 0u);
}

TEST(SlicesTest, MalformedListsAreRefused) {
    auto file = fatFile({{0, image(0)}});
    const auto spoilt = [&](std::size_t at, std::uint8_t byte) {
        auto copy = file;
        copy[at] = std::byte{byte};
        return taken(copy, Process::arm64);
    };
    EXPECT_EQ(spoilt(3, 0xbf),
              "it is a fat file with offsets of 64 bits, which iOS 11 and 12 do not read");
    EXPECT_EQ(spoilt(6, 1), "it holds more architectures than a loader looks at");
    EXPECT_EQ(spoilt(19, 8), "an architecture in it does not start on a page of 16 KiB");
    EXPECT_EQ(spoilt(16, 1), "the file ends inside an architecture");
    file.resize(20);
    EXPECT_EQ(taken(file, Process::arm64), "the file ends inside the list of architectures");
}

TEST(ProcessTest, FollowsThePhone) {
    for (const char* machine : {"iPhone6,1", "iPhone10,3", "iPhone10,6", "iPod5,1", "x86_64", ""})
        EXPECT_EQ(processOf(machine), Process::arm64) << machine;
    for (const char* machine : {"iPhone11,2", "iPhone11,8", "iPhone12,8", "iPhone13,4"})
        EXPECT_EQ(processOf(machine), Process::arm64e) << machine;
}

TEST(ProcessTest, HasAName) {
    for (Process process : {Process::arm64, Process::arm64e})
        EXPECT_EQ(processNamed(nameOf(process)), process);
    EXPECT_THROW(processNamed("armv7"), std::invalid_argument);
}

}  // namespace
}  // namespace simulator::loader::tests
