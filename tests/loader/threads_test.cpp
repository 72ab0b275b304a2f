// Threads through the pointers of an arm64e image of eight pointers: what each becomes, how it is
// signed, and where the next one is. In a pointer, from the low bits up: target or number of a symbol
// (32), number (16), place counts (1), key (2), distance (11), bind (1), signed (1).
#include "simulator/loader/threads.hpp"

#include <gtest/gtest.h>

#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

constexpr std::uint64_t signedBit = 1ull << 63;
constexpr std::uint64_t bindBit = 1ull << 62;
constexpr std::uint64_t byPlace = 1ull << 48;
constexpr std::uint64_t signingNumber(std::uint64_t value) { return value << 32; }
constexpr std::uint64_t key(std::uint64_t value) { return value << 49; }
constexpr std::uint64_t next(std::uint64_t pointers) { return pointers << 51; }

using ThreadLines = std::vector<std::string>;
using Pointers = std::array<std::uint64_t, 8>;

std::string described(const std::optional<Signing>& signing) {
    if (!signing) return "";
    constexpr const char* keys[] = {"IA", "IB", "DA", "DB"};
    return std::string(" ") + keys[signing->key] + " " + hexadecimal(signing->number) +
           (signing->byPlace ? " by place" : "");
}

// What a test says about an image: its fixups as texts, or why it is refused.
ThreadLines toldOfThreads(const ImageBuilder& image) {
    const std::vector<std::byte> bytes = image.build();
    try {
        const MachOFile file = readMachO(bytes);
        const Fixups fixups = readFixups(file);
        ThreadLines lines;
        for (const Rebase& rebase : fixups.rebases)
            lines.push_back(hexadecimal(rebase.address) + " -> " + hexadecimal(rebase.target) +
                            described(rebase.signing));
        for (const Bind& bind : fixups.binds)
            lines.push_back(hexadecimal(bind.address) + " = " + std::string(bind.symbol) + " of " +
                            std::to_string(bind.library) +
                            (bind.addend ? " + " + std::to_string(bind.addend) : "") +
                            described(bind.signing));
        return lines;
    } catch (const BadImage& error) {
        return {error.what()};
    }
}

const List symbols = List{0xd0, 0x02, 0x11, 0x40} + text("_f") + List{0x51, 0x90, 0x12, 0x40} +
                     text("_g") + List{0x60, 0x08, 0x90};
const List fromTheFirst = List{0x71, 0x00, 0xd1};

struct ThreadCase {
    const char* name;
    List opcodes;
    Pointers pointers;
    ThreadLines expected;
};
class ThreadTest : public testing::TestWithParam<ThreadCase> {};
TEST_P(ThreadTest, IsFollowed) {
    ImageBuilder image;
    image.subtype = 2;
    image.bind = GetParam().opcodes;
    image.pointers = GetParam().pointers;
    EXPECT_EQ(toldOfThreads(image), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Threads, ThreadTest,
    testing::Values(
        ThreadCase{"noThread", symbols, {}, {}},
        ThreadCase{"plain", symbols + fromTheFirst, {0x4010}, {"0x4000 -> 0x4010"}},
        // The highest byte of an address stands apart.
        ThreadCase{"highByte",
                   symbols + fromTheFirst,
                   {0xa5ull << 43 | 0x4010},
                   {"0x4000 -> 0xa500000000004010"}},
        ThreadCase{
            "function", symbols + fromTheFirst, {signedBit | 0x300}, {"0x4000 -> 0x300 IA 0x0"}},
        ThreadCase{"byPlace",
                   symbols + fromTheFirst,
                   {signedBit | byPlace | 0x300},
                   {"0x4000 -> 0x300 IA 0x0 by place"}},
        ThreadCase{"numberAndKey",
                   symbols + fromTheFirst,
                   {signedBit | signingNumber(0xd9d4) | key(3) | 0x300},
                   {"0x4000 -> 0x300 DB 0xd9d4"}},
        ThreadCase{"distances",
                   symbols + fromTheFirst,
                   {0x4010 | next(1), 0x4018 | next(5), 0x77, 0, 0, 0, 0x4020, 0},
                   {"0x4000 -> 0x4010", "0x4008 -> 0x4018", "0x4030 -> 0x4020"}},
        ThreadCase{"symbols",
                   symbols + fromTheFirst,
                   {bindBit | next(1), bindBit | 1},
                   {"0x4000 = _f of 1", "0x4008 = _g of 2 + 8"}},
        ThreadCase{"signedSymbol",
                   symbols + fromTheFirst,
                   {bindBit | signedBit | key(2) | byPlace},
                   {"0x4000 = _f of 1 DA 0x0 by place"}},
        ThreadCase{"twoThreads",
                   symbols + fromTheFirst + List{0x71, 0x20, 0xd1},
                   {0x4010, 0, 0, 0, 0x4018 | next(1), 0x4020},
                   {"0x4000 -> 0x4010", "0x4020 -> 0x4018", "0x4028 -> 0x4020"}},
        ThreadCase{"unknownSymbol",
                   symbols + fromTheFirst,
                   {bindBit | 2},
                   {"a threaded pointer names symbol 2 of 2"}},
        ThreadCase{"beyondTheFile",
                   symbols + List{0x71, 0x38, 0xd1},
                   {0, 0, 0, 0, 0, 0, 0, next(1)},
                   {"a threaded pointer at 0x4040 lies outside what the file holds"}},
        ThreadCase{
            "beyondThePage", symbols + fromTheFirst, {next(0x200)}, {"a thread leaves its page"}},
        ThreadCase{
            "odd", symbols + List{0x71, 0x04, 0xd1}, {}, {"a threaded pointer is not aligned"}},
        ThreadCase{"inCode",
                   symbols + List{0x70, 0x00, 0xd1},
                   {},
                   {"a fixup lies in segment __TEXT, which is not written"}},
        ThreadCase{
            "noPlace", symbols + List{0xd1}, {}, {"a fixup comes before any segment is named"}},
        ThreadCase{"noSymbols", fromTheFirst, {}, {"an unknown kind of thread"}},
        ThreadCase{"unknownKind", symbols + List{0xd2}, {}, {"an unknown kind of thread"}},
        ThreadCase{"symbolTooFew",
                   List{0xd0, 0x01} + fromTheFirst,
                   {},
                   {"1 symbols are announced and 0 there"}}),
    [](const auto& test) { return std::string(test.param.name); });

// From one pointer over and over: what is named more often than the file has room for is refused.
TEST(ThreadListTest, IsNoLongerThanTheFileHasRoomFor) {
    ImageBuilder image;
    image.subtype = 2;
    image.bind = symbols + List{0x71, 0x00} + List(2000, 0xd1);
    EXPECT_EQ(toldOfThreads(image), ThreadLines{"it has more fixups than room for them"});
}

TEST(ThreadedImageTest, OrdinaryListsAreRefused) {
    ImageBuilder image;
    image.subtype = 2;
    image.rebase = {0x11, 0x21, 0x00, 0x51};
    EXPECT_EQ(toldOfThreads(image),
              ThreadLines{"it is for arm64e, and its pointers are not threaded"});
    image.rebase = {};
    image.lazyBind = List{0x71, 0x00, 0x11, 0x40} + text("_f") + List{0x90, 0x00};
    EXPECT_EQ(toldOfThreads(image),
              ThreadLines{"it is for arm64e, and its pointers are not threaded"});
}

TEST(ThreadedImageTest, ChainsAreRefused) {
    ImageBuilder image;
    image.subtype = 2;
    image.chains = u32(0) + u32(28) + u32(28) + u32(28) + u32(0) + u32(1) + u32(0);
    EXPECT_EQ(toldOfThreads(image),
              ThreadLines{"it is for arm64e with chained fixups, which iOS 12 does not know"});
}

}  // namespace
}  // namespace simulator::loader::tests
