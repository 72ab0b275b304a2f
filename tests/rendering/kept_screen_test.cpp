// A screen that keeps what rests shows what a painting from nothing shows, and tells what changed.
#include "simulator/rendering/kept_screen.hpp"

#include <gtest/gtest.h>

#include <cstring>

#include "simulator/rendering/picture.hpp"
#include "tests/rendering/drawing.hpp"
#include "tests/rendering/random_scene.hpp"

namespace simulator::rendering {
namespace {

constexpr Size screen{90, 160};

const unsigned char* rowAt(const Surface& surface, int y) {
    return cairo_image_surface_get_data(surface.get()) +
           y * cairo_image_surface_get_stride(surface.get());
}

// The rows between the first and the last in which the pictures differ.
Rows difference(const Surface& one, const Surface& other) {
    Rows rows;
    for (int y = 0; y < one.height(); ++y) {
        const auto bytes = static_cast<std::size_t>(one.width()) * 4;
        if (std::memcmp(rowAt(one, y), rowAt(other, y), bytes) == 0) continue;
        if (rows.empty()) rows.first = y;
        rows.end = y + 1;
    }
    return rows;
}

class AnyScene : public testing::TestWithParam<unsigned> {};

TEST_P(AnyScene, LooksToTheByteAsPaintedFromNothing) {
    const double scale = GetParam() % 3 == 0 ? 1 : GetParam() % 3 == 1 ? 2 : 1.3;
    RandomScene scene(GetParam(), screen);
    KeptScreen kept;
    Surface before;
    for (int frame = 0; frame < 40; ++frame) {
        const Rows changed = kept.paint(scene.root(), screen, scale);
        const Surface whole = render(scene.root(), screen, scale);
        ASSERT_TRUE(difference(kept.surface(), whole).empty())
            << "frame " << frame << ", rows from " << difference(kept.surface(), whole).first;
        if (before) {
            EXPECT_TRUE(contains(changed, difference(before, whole)));
        }
        before = whole;
        // Now and then nothing happens, or much.
        for (int i = frame % 4; i > 0; --i) scene.change();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyScene, testing::Range(1u, 13u));

// A floor, ten squares that rest, one bar that moves.
Node squares(double place) {
    Node root = screenNode(90, 160);
    root.children.push_back(fillNode({{0, 0}, {90, 160}}, white));
    for (int i = 0; i < 10; ++i) root.children.push_back(fillNode({{9.0 * i, 0}, {9, 9}}, green));
    root.children.push_back(fillNode({{0, place}, {90, 10}}, red));
    return root;
}

TEST(KeptScreen, TellsAllRowsAtFirstAndThenThoseThatChanged) {
    KeptScreen kept;
    const Rows first = kept.paint(squares(20), screen, 1);
    EXPECT_EQ(first.first, 0);
    EXPECT_EQ(first.end, 160);
    const Rows moved = kept.paint(squares(25), screen, 1);
    EXPECT_EQ(moved.first, 19);  // no longer red; a row more, as an edge may touch it
    EXPECT_EQ(moved.end, 36);
    EXPECT_TRUE(kept.paint(squares(25), screen, 1).empty());
}

TEST(KeptScreen, PaintsOnlyWhatLiesOnTheFirstChange) {
    KeptScreen kept;
    kept.paint(squares(20), screen, 1);
    EXPECT_EQ(kept.keptSteps(), 0u);
    kept.paint(squares(25), screen, 1);
    kept.paint(squares(30), screen, 1);
    EXPECT_EQ(kept.keptSteps(), 12u);  // root, floor, ten at rest
    EXPECT_EQ(kept.painted().first, 24);
    EXPECT_EQ(kept.painted().end, 41);
    // What lay below changes: all that crosses its rows is painted again.
    Node other = squares(30);
    other.children[1].background = blue;
    kept.paint(other, screen, 1);
    EXPECT_EQ(kept.surface().pixel(4, 4), bluePixel);
    EXPECT_EQ(kept.surface().pixel(13, 4), greenPixel);
    EXPECT_EQ(kept.surface().pixel(4, 100), whitePixel);
}

// A small thing that changes once is painted without what rests on other rows.
TEST(KeptScreen, PaintsTheRowsOfASmallChange) {
    KeptScreen kept;
    Node root = screenNode(90, 160);
    for (int i = 0; i < 10; ++i) root.children.push_back(fillNode({{0, 16.0 * i}, {9, 9}}, green));
    kept.paint(root, screen, 1);
    root.children[5].background = red;
    kept.paint(root, screen, 1);
    EXPECT_EQ(kept.painted().first, 79);
    EXPECT_EQ(kept.painted().end, 90);
    EXPECT_EQ(kept.surface().pixel(4, 84), redPixel);
    EXPECT_EQ(kept.surface().pixel(4, 68), greenPixel);
}

TEST(KeptScreen, BeginsAnewInAnotherSizeOrScale) {
    KeptScreen kept;
    kept.paint(squares(20), screen, 1);
    EXPECT_EQ(kept.paint(squares(20), screen, 2).count(), 320);
    EXPECT_EQ(kept.surface().width(), 180);
    EXPECT_EQ(kept.paint(squares(20), {160, 90}, 2).count(), 180);
}

// Pictures are known by their address, which another may have once the first is gone.
TEST(KeptScreen, KnowsAPictureFromItsSuccessorAtTheSamePlace) {
    KeptScreen kept;
    for (const Colour colour : {red, blue, green}) {
        Surface pixels(10, 10);
        fill(pixels, colour, rowsOf(pixels));
        Node root = screenNode(90, 160);
        root.children.push_back(imageNode({{0, 0}, {10, 10}}, Picture::pixels(pixels)));
        const Surface whole = render(root, screen, 1);
        kept.paint(std::move(root), screen, 1);
        EXPECT_TRUE(difference(kept.surface(), whole).empty());
    }
}

}  // namespace
}  // namespace simulator::rendering
