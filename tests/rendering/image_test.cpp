// Pictures in layers: content modes, tint, multiply, scales.
#include <gtest/gtest.h>

#include "simulator/rendering/image_layout.hpp"
#include "simulator/rendering/picture.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

PictureRef plain(int width, int height, Colour colour, double scale = 1) {
    Surface surface(width, height);
    const Context context = contextOf(surface);
    setSource(context.get(), colour);
    cairo_paint(context.get());
    return Picture::pixels(surface, scale);
}

struct ModeCase {
    int mode;
    Rect expected;  // of a 40 x 20 picture in bounds of 100 x 100 at 10,10
};

class ContentMode : public testing::TestWithParam<ModeCase> {};

TEST_P(ContentMode, PlacesThePicture) {
    const Rect rect = imageRect({40, 20}, {{10, 10}, {100, 100}}, GetParam().mode);
    EXPECT_DOUBLE_EQ(rect.origin.x, GetParam().expected.origin.x);
    EXPECT_DOUBLE_EQ(rect.origin.y, GetParam().expected.origin.y);
    EXPECT_DOUBLE_EQ(rect.size.width, GetParam().expected.size.width);
    EXPECT_DOUBLE_EQ(rect.size.height, GetParam().expected.size.height);
}

INSTANTIATE_TEST_SUITE_P(
    All, ContentMode,
    testing::Values(ModeCase{0, {{10, 10}, {100, 100}}}, ModeCase{1, {{10, 35}, {100, 50}}},
                    ModeCase{2, {{-40, 10}, {200, 100}}}, ModeCase{3, {{10, 10}, {100, 100}}},
                    ModeCase{4, {{40, 50}, {40, 20}}}, ModeCase{5, {{40, 10}, {40, 20}}},
                    ModeCase{6, {{40, 90}, {40, 20}}}, ModeCase{7, {{10, 50}, {40, 20}}},
                    ModeCase{8, {{70, 50}, {40, 20}}}, ModeCase{9, {{10, 10}, {40, 20}}},
                    ModeCase{10, {{70, 10}, {40, 20}}}, ModeCase{11, {{10, 90}, {40, 20}}},
                    ModeCase{12, {{70, 90}, {40, 20}}}, ModeCase{13, {{10, 10}, {100, 100}}},
                    ModeCase{-1, {{10, 10}, {100, 100}}}));

TEST(ImageRect, OfNoPictureIsEmpty) {
    EXPECT_EQ(imageRect({0, 20}, {{0, 0}, {10, 10}}, 1).size.width, 0);
}

TEST(Image, FillsItsLayer) {
    Node root = screenNode(20, 20);
    root.children.push_back(imageNode({{5, 5}, {10, 10}}, plain(2, 2, red)));
    const Surface picture = render(root, {20, 20}, 1);
    EXPECT_EQ(picture.pixel(10, 10), redPixel);
    EXPECT_EQ(picture.pixel(3, 10), blackPixel);
}

TEST(Image, OfTwicePixelsHasHalfTheSize) {
    const PictureRef picture = plain(20, 10, red, 2);
    EXPECT_DOUBLE_EQ(picture->size().width, 10);
    EXPECT_DOUBLE_EQ(picture->size().height, 5);
}

TEST(Image, WithoutAPictureDrawsNothing) {
    Node root = screenNode(10, 10);
    root.children.push_back(imageNode({{0, 0}, {10, 10}}, nullptr));
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), blackPixel);
}

TEST(Image, TintKeepsOnlyTheAlphaOfThePicture) {
    Node root = screenNode(10, 10);
    root.children.push_back(imageNode({{0, 0}, {10, 10}}, plain(10, 10, {1, 0, 0, 0.5})));
    std::get<Image>(root.children[0].content).tint = green;
    const unsigned pixel = render(root, {10, 10}, 1).pixel(5, 5);
    EXPECT_EQ(redOf(pixel), 0);
    EXPECT_NEAR(greenOf(pixel), 128, 1);
}

TEST(Image, MultiplyScalesEachChannel) {
    Node root = screenNode(10, 10);
    root.children.push_back(imageNode({{0, 0}, {10, 10}}, plain(10, 10, {1, 0.5, 1, 1})));
    root.children[0].multiply = Colour{0.5, 1, 0, 1};
    const unsigned pixel = render(root, {10, 10}, 1).pixel(5, 5);
    EXPECT_NEAR(redOf(pixel), 128, 1);
    EXPECT_NEAR(greenOf(pixel), 128, 1);
    EXPECT_EQ(blueOf(pixel), 0);
}

TEST(Image, MultiplyKeepsThePictureSeeThrough) {
    Node root = screenNode(10, 10);
    root.children.push_back(imageNode({{0, 0}, {10, 10}}, plain(10, 10, {1, 1, 1, 0.5})));
    root.children[0].multiply = Colour{1, 0, 0, 0.5};
    const unsigned pixel = render(root, {10, 10}, 1).pixel(5, 5);
    EXPECT_NEAR(redOf(pixel), 64, 2);
    EXPECT_EQ(greenOf(pixel), 0);
}

TEST(Image, MultiplyLeavesTheBackground) {
    Node root = screenNode(10, 10);
    root.background = white;
    root.multiply = red;
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), whitePixel);
}

TEST(Image, SymbolAsPictureMatchesSymbolAsContent) {
    Node drawn = screenNode(48, 48);
    drawn.content = Symbol{"stop", white, 1};
    Node pictured = screenNode(48, 48);
    pictured.content = Image{Picture::symbol("stop", {48, 48}), 0, white};
    EXPECT_LE(largestDifference(render(drawn, {48, 48}, 2), render(pictured, {48, 48}, 2)), 2);
}

// One pixel wide stripes, shown at a quarter: filtered to grey, not sampled to black or white.
TEST(Image, ShrunkPicturesAreAveraged) {
    Surface stripes(64, 64);
    {
        const Context context = contextOf(stripes);
        setSource(context.get(), black);
        cairo_paint(context.get());
        setSource(context.get(), white);
        for (int x = 0; x < 64; x += 2) cairo_rectangle(context.get(), x, 0, 1, 64);
        cairo_fill(context.get());
    }
    Node root = screenNode(16, 16);
    root.children.push_back(imageNode({{0, 0}, {16, 16}}, Picture::pixels(stripes)));
    EXPECT_NEAR(redOf(render(root, {16, 16}, 1).pixel(8, 8)), 128, 3);
}

TEST(Picture, RefusesWhatHasNoPixels) {
    EXPECT_EQ(Picture::pixels(Surface()), nullptr);
    EXPECT_EQ(Picture::pixels(Surface(2, 2), 0), nullptr);
}

TEST(Picture, DrawingsAreDrawnOncePerScale) {
    int count = 0;
    const PictureRef picture = Picture::drawing({10, 10}, [&count](cairo_t*) { ++count; });
    EXPECT_EQ(picture->raster(2).width(), 20);
    EXPECT_EQ(picture->raster(2).width(), 20);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(picture->raster(3).width(), 30);
    EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace simulator::rendering
