// What a blur does to the picture behind it.
#include <gtest/gtest.h>

#include "simulator/rendering/blur.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

// Left half black, right half white, and a blur without tint over the lower half.
Node edgeUnderBlur(double radius) {
    Node root = screenNode(100, 100);
    root.children.push_back(fillNode({{50, 0}, {50, 100}}, white));
    Node glass = nodeWithFrame("glass", {{0, 50}, {100, 50}});
    glass.content = Blur{radius, clear, 1};
    root.children.push_back(glass);
    return root;
}

TEST(Blur, SmearsAnEdge) {
    const Surface picture = render(edgeUnderBlur(8), {100, 100}, 1);
    // One standard deviation from the edge a Gaussian has 16 and 84 hundredths of the step.
    EXPECT_NEAR(redOf(picture.pixel(42, 75)), 41, 14);
    EXPECT_NEAR(redOf(picture.pixel(58, 75)), 214, 14);
    EXPECT_LT(redOf(picture.pixel(5, 75)), 4);
    EXPECT_GT(redOf(picture.pixel(95, 75)), 251);
}

TEST(Blur, LeavesTheRestOfTheScreenSharp) {
    const Surface picture = render(edgeUnderBlur(8), {100, 100}, 1);
    EXPECT_EQ(picture.pixel(49, 20), blackPixel);
    EXPECT_EQ(picture.pixel(50, 20), whitePixel);
}

TEST(Blur, LooksTheSameAtEveryScale) {
    const Surface one = render(edgeUnderBlur(8), {100, 100}, 1);
    const Surface three = render(edgeUnderBlur(8), {100, 100}, 3);
    for (int x = 20; x < 80; x += 4) {
        EXPECT_NEAR(redOf(one.pixel(x, 75)), redOf(three.pixel(3 * x + 1, 226)), 12) << "at " << x;
    }
}

TEST(Blur, KeepsAnEvenGroundAsItIs) {
    Node root = screenNode(60, 60);
    root.background = Colour{0.5, 0.5, 0.5, 1};
    Node glass = nodeWithFrame("glass", {{0, 0}, {60, 60}});
    glass.content = Blur{10, clear, 1.8};
    root.children.push_back(glass);
    const Surface picture = render(root, {60, 60}, 2);
    EXPECT_NEAR(redOf(picture.pixel(2, 2)), 128, 1);
    EXPECT_NEAR(redOf(picture.pixel(60, 60)), 128, 1);
    EXPECT_NEAR(redOf(picture.pixel(118, 118)), 128, 1);
}

TEST(Blur, TintCoversByItsAlpha) {
    Node root = screenNode(40, 40);
    Node glass = nodeWithFrame("glass", {{0, 0}, {40, 40}});
    glass.content = Blur{10, {1, 1, 1, 0.25}, 1};
    root.children.push_back(glass);
    EXPECT_NEAR(redOf(render(root, {40, 40}, 1).pixel(20, 20)), 64, 1);
}

TEST(Blur, SaturationPushesColoursApart) {
    Node root = screenNode(40, 40);
    root.background = Colour{0.6, 0.5, 0.5, 1};
    Node glass = nodeWithFrame("glass", {{0, 0}, {40, 40}});
    glass.content = Blur{10, clear, 1.8};
    root.children.push_back(glass);
    const unsigned pixel = render(root, {40, 40}, 1).pixel(20, 20);
    // The grey is 0.5213; 0.6 moves to 0.5213 + 1.8 * 0.0787 = 0.6630, 0.5 to 0.4830.
    EXPECT_NEAR(redOf(pixel), 169, 2);
    EXPECT_NEAR(greenOf(pixel), 123, 2);
}

TEST(Blur, StaysInsideRoundedCorners) {
    Node root = screenNode(40, 40);
    Node glass = nodeWithFrame("glass", {{0, 0}, {40, 40}});
    glass.cornerRadius = 20;
    glass.content = Blur{10, white, 1};
    root.children.push_back(glass);
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(1, 1), blackPixel);
    EXPECT_EQ(picture.pixel(20, 20), whitePixel);
}

// While a panel fades in, it is a group: its blur must still find the screen below the group.
TEST(Blur, SeesThroughAFadingGroup) {
    Node root = screenNode(40, 40);
    root.background = white;
    Node panel = nodeWithFrame("panel", {{0, 0}, {40, 40}});
    panel.opacity = 0.5;
    Node glass = nodeWithFrame("glass", {{0, 0}, {40, 40}});
    glass.content = Blur{6, clear, 1};
    panel.children.push_back(glass);
    panel.children.push_back(fillNode({{0, 0}, {4, 4}}, red));
    root.children.push_back(panel);
    EXPECT_GE(redOf(render(root, {40, 40}, 1).pixel(30, 30)), 253);
}

TEST(Blur, OfNoRadiusShowsWhatIsBehind) {
    EXPECT_LE(largestDifference(render(edgeUnderBlur(0), {100, 100}, 1),
                                [] {
                                    Node root = edgeUnderBlur(0);
                                    root.children.pop_back();
                                    return render(root, {100, 100}, 1);
                                }()),
              1);
}

TEST(Blur, BesideTheScreenIsHarmless) {
    Node root = screenNode(20, 20);
    Node glass = nodeWithFrame("glass", {{0, 500}, {20, 20}});
    glass.content = Blur{10, white, 1};
    root.children.push_back(glass);
    EXPECT_EQ(render(root, {20, 20}, 1).pixel(10, 10), blackPixel);
}

TEST(BlurInPlace, KeepsTheSumOfTheLight) {
    Surface surface(61, 61);
    {
        const Context context = contextOf(surface);
        setSource(context.get(), white);
        cairo_rectangle(context.get(), 25, 25, 11, 11);
        cairo_fill(context.get());
    }
    blurInPlace(surface, 4);
    int sum = 0;
    for (int y = 0; y < 61; ++y) {
        for (int x = 0; x < 61; ++x) sum += alphaOf(surface.pixel(x, y));
    }
    EXPECT_NEAR(sum, 11 * 11 * 255, 11 * 11 * 255 / 20);
    EXPECT_EQ(surface.pixel(30 - 8, 30), surface.pixel(30 + 8, 30));
    EXPECT_NEAR(alphaOf(surface.pixel(30, 30 - 8)), alphaOf(surface.pixel(30 + 8, 30)), 2);
}

}  // namespace
}  // namespace simulator::rendering
