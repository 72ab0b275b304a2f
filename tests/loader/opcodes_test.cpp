// Rebases and binds told as opcodes, one after another, in an image of eight pointers.
#include <gtest/gtest.h>

#include "simulator/loader/fixups.hpp"
#include "tests/loader/image_builder.hpp"

namespace simulator::loader::tests {
namespace {

// What a test says about an image: its fixups as texts, or why it is refused.
std::vector<std::string> told(const ImageBuilder& image) {
    const std::vector<std::byte> bytes = image.build();
    const MachOFile file = readMachO(bytes);
    std::vector<std::string> lines;
    try {
        const Fixups fixups = readFixups(file);
        for (const Rebase& rebase : fixups.rebases)
            lines.push_back(hexadecimal(rebase.address) + " -> " + hexadecimal(rebase.target));
        for (const Bind& bind : fixups.binds) {
            constexpr const char* kinds[] = {"", " lazy", " weak"};
            lines.push_back(hexadecimal(bind.address) + " = " + std::string(bind.symbol) + " of " +
                            std::to_string(bind.library) +
                            (bind.addend ? " + " + std::to_string(bind.addend) : "") +
                            (bind.optional ? " optional" : "") +
                            kinds[static_cast<int>(bind.kind)]);
        }
    } catch (const BadImage& error) {
        return {error.what()};
    }
    return lines;
}

using Lines = std::vector<std::string>;
const List pointerType{0x11};
const List dataStart{0x21, 0x00};  // segment 1, offset 0

struct Case {
    const char* name;
    List opcodes;
    Lines expected;
};

class RebaseTest : public testing::TestWithParam<Case> {};
TEST_P(RebaseTest, IsCarriedOut) {
    ImageBuilder image;
    // Pointer n holds 0x100 + n.
    for (std::size_t index = 0; index < image.pointers.size(); ++index)
        image.pointers[index] = 0x100 + index;
    image.rebase = pointerType + GetParam().opcodes;
    EXPECT_EQ(told(image), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Opcodes, RebaseTest,
    testing::Values(
        Case{"nothing", {}, {}},
        Case{"few", dataStart + List{0x52}, {"0x4000 -> 0x100", "0x4008 -> 0x101"}},
        Case{"noneAtAll", dataStart + List{0x50}, {}},
        Case{"many", dataStart + List{0x60, 2}, {"0x4000 -> 0x100", "0x4008 -> 0x101"}},
        Case{"place", List{0x21, 0x10, 0x51}, {"0x4010 -> 0x102"}},
        Case{"advance", dataStart + List{0x30, 0x18, 0x51}, {"0x4018 -> 0x103"}},
        Case{"advancePointers", dataStart + List{0x44, 0x51}, {"0x4020 -> 0x104"}},
        // One pointer, then the pointer's size and eight more.
        Case{"andAdvance", dataStart + List{0x70, 8, 0x51}, {"0x4000 -> 0x100", "0x4010 -> 0x102"}},
        // Three pointers with sixteen bytes between.
        Case{"skipping",
             dataStart + List{0x80, 3, 16},
             {"0x4000 -> 0x100", "0x4018 -> 0x103", "0x4030 -> 0x106"}},
        Case{"done", dataStart + List{0x51, 0x00, 0x51}, {"0x4000 -> 0x100"}},
        // Adding a number so large that it goes backwards.
        Case{"backwards",
             List{0x21, 0x10} + List{0x30} + uleb(~std::uint64_t{0} - 7) + List{0x51},
             {"0x4008 -> 0x101"}},
        Case{"last", List{0x21, 0x38, 0x51}, {"0x4038 -> 0x107"}},
        Case{"behindTheLast", List{0x21, 0x39, 0x51}, {"a fixup lies outside segment __DATA"}},
        Case{"tooMany", dataStart + List{0x60, 9}, {"a fixup lies outside segment __DATA"}},
        Case{"billionsOfOne",
             dataStart + List{0x80} + uleb(1ull << 40) + uleb(~0ull - 7),
             {"it has more fixups than room for them"}},
        Case{"noSegment", List{0x51}, {"a fixup comes before any segment is named"}},
        Case{"unknownSegment", List{0x23, 0x00}, {"a fixup names segment 3 of 3"}},
        Case{"codeSegment",
             List{0x20, 0x00, 0x51},
             {"a fixup lies in segment __TEXT, which is not written"}},
        Case{"anotherType", List{0x12}, {"a fixup is no pointer of 64 bits"}},
        Case{"unknown", List{0x90}, {"unknown opcode 0x90 in the rebase opcodes"}},
        Case{"cutOff", List{0x21}, {"the file ends inside the rebase opcodes"}},
        Case{"endlessNumber",
             List{0x21} + List(11, 0x80),
             {"a number in the rebase opcodes has more than 64 bits"}}),
    [](const auto& test) { return std::string(test.param.name); });

const List bindHere = List{0x11, 0x40} + text("_f") + List{0x51, 0x71, 0x00};

class BindTest : public testing::TestWithParam<Case> {};
TEST_P(BindTest, IsCarriedOut) {
    ImageBuilder image;
    image.bind = GetParam().opcodes;
    EXPECT_EQ(told(image), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    Opcodes, BindTest,
    testing::Values(
        Case{"once", bindHere + List{0x90}, {"0x4000 = _f of 1"}},
        Case{"done", bindHere + List{0x00, 0x90}, {}},
        Case{"secondLibrary",
             List{0x12, 0x40} + text("_f") + List{0x71, 0x08, 0x90},
             {"0x4008 = _f of 2"}},
        Case{"longOrdinal",
             List{0x20, 0x02, 0x40} + text("_f") + List{0x71, 0x08, 0x90},
             {"0x4008 = _f of 2"}},
        Case{"itself", bindHere + List{0x30, 0x90}, {"0x4000 = _f of 0"}},
        Case{"program", bindHere + List{0x3f, 0x90}, {"0x4000 = _f of -1"}},
        Case{"anywhere", bindHere + List{0x3e, 0x90}, {"0x4000 = _f of -2"}},
        Case{"weakDefinitions", bindHere + List{0x3d, 0x90}, {"0x4000 = _f of -3"}},
        Case{"optional",
             List{0x11, 0x41} + text("_f") + List{0x71, 0x00, 0x90},
             {"0x4000 = _f of 1 optional"}},
        Case{"addend", bindHere + List{0x60, 0x10, 0x90}, {"0x4000 = _f of 1 + 16"}},
        Case{"negativeAddend", bindHere + List{0x60, 0x7f, 0x90}, {"0x4000 = _f of 1 + -1"}},
        Case{"advance", bindHere + List{0x80, 0x10, 0x90}, {"0x4010 = _f of 1"}},
        Case{"andAdvance",
             bindHere + List{0xa0, 0x08, 0x90},
             {"0x4000 = _f of 1", "0x4010 = _f of 1"}},
        Case{"andAdvancePointers",
             bindHere + List{0xb2, 0x90},
             {"0x4000 = _f of 1", "0x4018 = _f of 1"}},
        Case{"skipping",
             bindHere + List{0xc0, 0x03, 0x08},
             {"0x4000 = _f of 1", "0x4010 = _f of 1", "0x4020 = _f of 1"}},
        Case{"twoSymbols",
             bindHere + List{0x90, 0x40} + text("_g") + List{0x90},
             {"0x4000 = _f of 1", "0x4008 = _g of 1"}},
        Case{"noSymbol", List{0x71, 0x00, 0x90}, {"a bind comes before any symbol is named"}},
        Case{"unknownLibrary", List{0x13}, {"a symbol is bound to library 3 of 2"}},
        Case{"unknownSpecial", List{0x3c}, {"a symbol is bound to library -4 of 2"}},
        Case{"behindTheLast",
             bindHere + List{0x80, 0x39, 0x90},
             {"a fixup lies outside segment __DATA"}},
        Case{"endlessName", List{0x40, '_', 'f'}, {"the file ends inside the bind opcodes"}},
        Case{"threaded", bindHere + List{0xd1}, {"its binds are threaded: that is for arm64e"}},
        Case{"unknown", List{0xe0}, {"unknown opcode 0xe0 in the bind opcodes"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(LazyBindTest, TheListGoesOnBehindEachEnd) {
    ImageBuilder image;
    image.lazyBind = List{0x71, 0x00, 0x11, 0x40} + text("_f") + List{0x90, 0x00} +
                     List{0x71, 0x08, 0x12, 0x40} + text("_g") + List{0x90, 0x00, 0x00, 0x00};
    EXPECT_EQ(told(image), (Lines{"0x4000 = _f of 1 lazy", "0x4008 = _g of 2 lazy"}));
}

TEST(WeakBindTest, IsToldApart) {
    ImageBuilder image;
    image.weakBind = List{0x40} + text("_f") + List{0x71, 0x00, 0x90, 0x00};
    EXPECT_EQ(told(image), (Lines{"0x4000 = _f of 0 weak"}));
}

}  // namespace
}  // namespace simulator::loader::tests
