// Damaged libraries end in an error or in something that was read whole, never in a crash: each of
// many thousand images has a few bytes changed, the same ones in every run.
#include <gtest/gtest.h>

#include <random>

#include "tests/loader/image_builder.hpp"
#include "tests/loader/image_use.hpp"

namespace simulator::loader::tests {
namespace {

constexpr int mutations = 20'000;

ImageBuilder withOpcodes() {
    ImageBuilder image;
    image.sections = {{"__DATA", "__init", dataAddress, 8, 9},
                      {"__DATA", "__objc_selrefs", dataAddress + 8, 8},
                      {"__DATA", "__objc_imageinfo", dataAddress + 24, 8}};
    image.symbols = {{"_own", 0x4020}, {"_other", 0x4028}};
    const std::uint64_t code = image.codeAddress();
    image.pointers = {code, dataAddress + 16, 0x000000656d617266};
    image.rebase = List{0x11, 0x21, 0x00, 0x52, 0x70, 0x08, 0x80, 0x02, 0x00, 0x00};
    image.bind = List{0x11, 0x40} + text("_f") + List{0x51, 0x71, 0x18, 0xc0, 0x02, 0x00, 0x00};
    image.lazyBind = List{0x71, 0x30, 0x12, 0x40} + text("_g") + List{0x90, 0x00};
    image.weakBind = List{0x3d, 0x40} + text("_own") + List{0x71, 0x38, 0x90, 0x00};
    return image;
}

ImageBuilder withThreads() {
    ImageBuilder image = withOpcodes();
    image.subtype = 2;
    image.rebase = image.lazyBind = image.weakBind = {};
    image.bind = List{0xd0, 0x02, 0x11, 0x40} + text("_f") + List{0x51, 0x90, 0x12, 0x40} +
                 text("_g") + List{0x90, 0x71, 0x00, 0xd1, 0x71, 0x28, 0xd1};
    constexpr std::uint64_t toNext = 1ull << 51;
    constexpr std::uint64_t isSigned = 1ull << 63;
    image.pointers = {image.codeAddress() | isSigned | toNext,
                      (dataAddress + 16) | 2 * toNext,
                      0x000000656d617266,
                      1ull << 62,
                      0,
                      (1ull << 62) | 1};
    return image;
}

ImageBuilder withChains() {
    ImageBuilder image = withOpcodes();
    const List segment =
        u32(24) + u16(0x4000) + u16(6) + u64(dataAddress) + u32(0) + u16(1) + u16(0);
    const List starts = u32(3) + u32(0) + u32(16) + u32(0) + segment;
    const auto imports = 28 + static_cast<std::uint32_t>(starts.size());
    image.chains = u32(0) + u32(28) + u32(imports) + u32(imports + 4) + u32(1) + u32(1) + u32(0) +
                   starts + u32(1) + text("_f");
    // Of one pointer to the next by two and four steps of four bytes.
    image.pointers[0] = image.codeAddress() | 2ull << 51;
    image.pointers[1] |= 4ull << 51;
    image.pointers[3] = 1ull << 63;
    return image;
}

// The list of rebases ends at its first byte and is read as unwind information besides.
ImageBuilder withUnwindInformation() {
    ImageBuilder image;
    image.rebase = u32(1) + u32(28) + u32(1) + u32(0) + u32(0) + u32(32) + u32(2) +
                   u32(0x04000001) + u32(0x100) + u32(56) + u32(0) + u32(0x180) + u32(0) + u32(0) +
                   u32(3) + u16(12) + u16(2) + u16(20) + u16(1) + u32(0) + u32(0x01000040) +
                   u32(0x02002000);
    image.sections = {{"__TEXT", "__unwind_info", linkAddress, image.rebase.size()}};
    return image;
}

// The same library twice in one file, for each kind of process.
std::vector<std::byte> withSlices() {
    const std::vector<std::byte> parts[] = {withOpcodes().build(), withThreads().build()};
    return fatFile({{0, parts[0]}, {2, parts[1]}});
}

// How many of the damaged images were read all the same.
int survivors(const std::vector<std::byte>& sound, unsigned seed) {
    std::mt19937 random(seed);
    int count = 0;
    for (int round = 0; round < mutations; ++round) {
        std::vector<std::byte> bytes = sound;
        for (auto changes = 1 + random() % 4; changes > 0; --changes)
            bytes[random() % bytes.size()] = static_cast<std::byte>(random());
        try {
            use(bytes);
            ++count;
        } catch (const BadImage&) {
        }
    }
    return count;
}

template <ImageBuilder (*Image)()>
std::vector<std::byte> built() {
    return Image().build();
}

class FuzzTest : public testing::TestWithParam<std::vector<std::byte> (*)()> {};
TEST_P(FuzzTest, DamagedImagesAreReadOrRefused) {
    const std::vector<std::byte> sound = GetParam()();
    ASSERT_NO_THROW(use(sound));
    const int count = survivors(sound, 20'260'101);
    // Some changes meet what nobody reads, most do not.
    EXPECT_GT(count, 0);
    EXPECT_LT(count, mutations);
}
INSTANTIATE_TEST_SUITE_P(Images, FuzzTest,
                         testing::Values(&built<withOpcodes>, &built<withThreads>,
                                         &built<withChains>, &built<withUnwindInformation>));

// Of a fat file only the list at its start: what is behind it is damaged above.
TEST(FuzzSlicesTest, DamagedListsAreReadOrRefused) {
    const std::vector<std::byte> sound = withSlices();
    ASSERT_NO_THROW(use(sound));
    constexpr std::size_t listSize = 8 + 2 * 20;
    std::mt19937 random(20'260'102);
    int refused = 0;
    for (int round = 0; round < mutations / 10; ++round) {
        std::vector<std::byte> bytes = sound;
        for (auto changes = 1 + random() % 4; changes > 0; --changes)
            bytes[random() % listSize] = static_cast<std::byte>(random());
        try {
            use(bytes);
        } catch (const BadImage&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, mutations / 10);
}

}  // namespace
}  // namespace simulator::loader::tests
