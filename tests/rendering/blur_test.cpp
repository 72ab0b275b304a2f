// What a blur does to the picture behind it.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

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

unsigned channel(unsigned pixel, int which) { return (pixel >> (8 * which)) & 0xff; }

// The mean of `size` pixels about one, rounded, the ends continued.
unsigned boxAbout(const std::vector<unsigned>& line, int place, int size) {
    unsigned result = 0;
    for (int which = 0; which < 4; ++which) {
        unsigned sum = 0;
        for (int i = place - size / 2; i <= place + size / 2; ++i) {
            const int inside = std::clamp(i, 0, static_cast<int>(line.size()) - 1);
            sum += channel(line[static_cast<std::size_t>(inside)], which);
        }
        const auto count = static_cast<unsigned>(size);
        result |= (sum + count / 2) / count << (8 * which);
    }
    return result;
}

// Pixels by rows; the box along every row, then down every column.
std::vector<unsigned> boxed(std::vector<unsigned> pixels, int width, int height, int size) {
    const auto at = [&](int x, int y) -> unsigned& {
        return pixels[static_cast<std::size_t>(y * width + x)];
    };
    for (int y = 0; y < height; ++y) {
        std::vector<unsigned> line;
        for (int x = 0; x < width; ++x) line.push_back(at(x, y));
        for (int x = 0; x < width; ++x) at(x, y) = boxAbout(line, x, size);
    }
    for (int x = 0; x < width; ++x) {
        std::vector<unsigned> line;
        for (int y = 0; y < height; ++y) line.push_back(at(x, y));
        for (int y = 0; y < height; ++y) at(x, y) = boxAbout(line, y, size);
    }
    return pixels;
}

// A deviation of 2 is that of boxes of 3, 3 and 5 pixels: (8 + 8 + 24) / 12 is near 4.
TEST(Blur, IsThreeBoxesToTheByte) {
    constexpr int width = 37, height = 23;
    const Surface surface(width, height);
    std::vector<unsigned> pixels;
    unsigned seed = 1;
    for (int i = 0; i < width * height; ++i) {
        seed = seed * 1664525u + 1013904223u;
        pixels.push_back(0xff000000u | seed >> 8);
    }
    for (int y = 0; y < height; ++y) {
        std::copy_n(pixels.begin() + y * width, width,
                    reinterpret_cast<unsigned*>(cairo_image_surface_get_data(surface.get()) +
                                                y * cairo_image_surface_get_stride(surface.get())));
    }
    cairo_surface_mark_dirty(surface.get());
    blurInPlace(surface, 2);
    for (const int size : {3, 3, 5}) pixels = boxed(pixels, width, height, size);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            ASSERT_EQ(surface.pixel(x, y), pixels[static_cast<std::size_t>(y * width + x)])
                << x << ", " << y;
        }
    }
}

}  // namespace
}  // namespace simulator::rendering
