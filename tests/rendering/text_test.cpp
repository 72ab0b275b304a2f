// Measuring and drawing of text.
#include <gtest/gtest.h>

#include "simulator/rendering/text.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

// The first and the last column with ink, or -1.
struct Columns {
    int first = -1;
    int last = -1;
};

Columns inkColumns(const Surface& picture) {
    Columns columns;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (redOf(picture.pixel(x, y)) < 100) continue;
            if (columns.first < 0) columns.first = x;
            columns.last = x;
        }
    }
    return columns;
}

Surface label(const std::string& text, double width, TextAlignment alignment,
              bool truncates = true) {
    Node root = screenNode(200, 30);
    root.children.push_back(textNode({{0, 0}, {width, 30}}, text, 17, 400, white, alignment));
    std::get<Text>(root.children[0].content).truncatesTail = truncates;
    return render(root, {200, 30}, 1);
}

TEST(Measure, NothingForNoText) {
    EXPECT_EQ(measure("", 17, 400).width, 0);
    EXPECT_EQ(measure("", 17, 400).height, 0);
}

TEST(Measure, IsTheSameTwice) {
    const Size first = measure("Harbour Library", 17, 400);
    const Size second = measure("Harbour Library", 17, 400);
    EXPECT_EQ(first.width, second.width);
    EXPECT_EQ(first.height, second.height);
}

TEST(Measure, IsAWholeNumberOfHalfPoints) {
    const Size size = measure("Harbour", 15, 500);
    EXPECT_EQ(size.width * 2, static_cast<int>(size.width * 2));
    EXPECT_EQ(size.height * 2, static_cast<int>(size.height * 2));
}

TEST(Measure, GrowsWithTextSizeAndWeight) {
    EXPECT_GT(measure("mmmm", 17, 400).width, measure("mmm", 17, 400).width);
    EXPECT_GT(measure("mmm", 18, 400).width, measure("mmm", 17, 400).width);
    EXPECT_GT(measure("mmm", 17, 800).width, measure("mmm", 17, 300).width);
}

TEST(Measure, WrapsWithinTheWidth) {
    const std::string text = "Nobody has asked her to for thirty years";
    const Size one = measure(text, 17, 400);
    const Size wrapped = measure(text, 17, 400, one.width / 2, 0);
    EXPECT_LE(wrapped.width, one.width / 2 + 0.5);
    EXPECT_GE(wrapped.height, 1.9 * one.height);
}

TEST(Measure, StopsAtTheNumberOfLines) {
    const std::string text =
        "Nobody has asked her to for thirty years and she would not listen anyway";
    const double line = measure("Nobody", 17, 400).height;
    EXPECT_NEAR(measure(text, 17, 400, 100, 2).height, 2 * line, 1);
    EXPECT_NEAR(measure(text, 17, 400, 100, 1).height, line, 1);
    EXPECT_GT(measure(text, 17, 400, 100, 0).height, 3 * line);
}

TEST(Measure, OfSizesThatAreNoneIsFinite) {
    EXPECT_GT(measure("a", 0, 400).width, 0);
    EXPECT_GT(measure("a", -3, 0, -1, -1).width, 0);
    EXPECT_LT(measure("a", 1e30, 400).width, 1e6);
}

TEST(DrawText, FitsIntoItsOwnMeasure) {
    const std::string text = "Display & Brightness";
    const Size size = measure(text, 17, 400);
    EXPECT_EQ(largestDifference(label(text, size.width, TextAlignment::left),
                                label(text, size.width, TextAlignment::left, false)),
              0);
}

TEST(DrawText, AlignsLeftCentreAndRight) {
    const int width = static_cast<int>(measure("HIH", 17, 400).width);
    const Columns left = inkColumns(label("HIH", 200, TextAlignment::left));
    const Columns natural = inkColumns(label("HIH", 200, TextAlignment::natural));
    const Columns centre = inkColumns(label("HIH", 200, TextAlignment::center));
    const Columns right = inkColumns(label("HIH", 200, TextAlignment::right));
    EXPECT_LT(left.first, 4);
    EXPECT_EQ(natural.first, left.first);
    EXPECT_NEAR((centre.first + centre.last) / 2.0, 99.5, 1.5);
    EXPECT_GT(right.last, 195);
    EXPECT_LT(left.last, width + 1);
}

TEST(DrawText, TruncatesWithAnEllipsisInsideTheWidth) {
    const std::string text = "HHHHHHHHHHHHHHHHHHHHHHHHH";
    const Columns ink = inkColumns(label(text, 100, TextAlignment::left));
    EXPECT_LT(ink.last, 100);
    EXPECT_GT(ink.last, 70);
    EXPECT_GT(largestDifference(label(text, 100, TextAlignment::left),
                                label(text, 100, TextAlignment::left, false)),
              100);
}

TEST(DrawText, WithoutTruncationIsCutAtTheEdge) {
    const Columns ink =
        inkColumns(label("HHHHHHHHHHHHHHHHHHHHHHHHH", 100, TextAlignment::left, false));
    EXPECT_LE(ink.last, 99);
}

TEST(DrawText, IsCentredVertically) {
    const Surface picture = label("H", 200, TextAlignment::left);
    int first = -1, last = -1;
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 20; ++x) {
            if (redOf(picture.pixel(x, y)) < 100) continue;
            if (first < 0) first = y;
            last = y;
        }
    }
    EXPECT_NEAR((first + last) / 2.0, 15, 2);
}

TEST(DrawText, BytesThatAreNoTextDoNotHarm) {
    const Surface picture = label("\xff\xfe H", 200, TextAlignment::left);
    EXPECT_GT(inkColumns(picture).last, 0);
}

TEST(DrawText, MultiplyColoursTheInk) {
    Node root = screenNode(40, 40);
    root.children.push_back(textNode({{0, 0}, {40, 40}}, "\u2588", 30, 900, white));
    root.children[0].multiply = red;
    const Surface picture = render(root, {40, 40}, 1);
    int most = 0, others = 0;
    for (int x = 0; x < 40; ++x) {
        most = std::max(most, redOf(picture.pixel(x, 20)));
        others = std::max(others, greenOf(picture.pixel(x, 20)));
    }
    EXPECT_GT(most, 200);
    EXPECT_EQ(others, 0);
}

}  // namespace
}  // namespace simulator::rendering
