// Geometry, clipping and opacity of node trees, pixel by pixel.
#include <gtest/gtest.h>

#include <cstdint>

#include "simulator/rendering/pixel_loops.hpp"
#include "simulator/rendering/stamps.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

TEST(Canvas, FillsTheFrameAndNothingBeside) {
    Node root = screenNode(20, 20);
    root.children.push_back(fillNode({{5, 6}, {10, 8}}, red));
    const Surface picture = render(root, {20, 20}, 1);
    EXPECT_EQ(picture.pixel(5, 6), redPixel);
    EXPECT_EQ(picture.pixel(14, 13), redPixel);
    EXPECT_EQ(picture.pixel(4, 6), blackPixel);
    EXPECT_EQ(picture.pixel(15, 13), blackPixel);
    EXPECT_EQ(picture.pixel(5, 14), blackPixel);
}

TEST(Canvas, HasScaleTimesThePoints) {
    Node root = screenNode(20, 10);
    root.children.push_back(fillNode({{5, 0}, {10, 10}}, red));
    const Surface picture = render(root, {20, 10}, 3);
    EXPECT_EQ(picture.width(), 60);
    EXPECT_EQ(picture.height(), 30);
    EXPECT_EQ(picture.pixel(14, 15), blackPixel);
    EXPECT_EQ(picture.pixel(15, 15), redPixel);
    EXPECT_EQ(picture.pixel(44, 15), redPixel);
    EXPECT_EQ(picture.pixel(45, 15), blackPixel);
}

TEST(Canvas, AnswersZeroForPixelsOutside) {
    const Surface picture = render(screenNode(4, 4), {4, 4}, 1);
    EXPECT_EQ(picture.pixel(-1, 0), 0u);
    EXPECT_EQ(picture.pixel(4, 0), 0u);
    EXPECT_EQ(Surface().pixel(0, 0), 0u);
}

TEST(Canvas, SurvivesSizesThatAreNone) {
    EXPECT_EQ(render(screenNode(0, 0), {0, -5}, 1).width(), 1);
    EXPECT_EQ(Canvas({10, 10}, 0).surface().width(), 10);
}

TEST(Canvas, CircularCornersCutTheCornerOnly) {
    Node root = screenNode(100, 100);
    root.background = red;
    root.cornerRadius = 30;
    const Surface picture = render(root, {100, 100}, 1);
    // The arc meets the diagonal at 30 (1 - 1/sqrt 2) = 8.79 points from each edge.
    EXPECT_EQ(picture.pixel(7, 7), blackPixel);
    EXPECT_EQ(picture.pixel(10, 10), redPixel);
    EXPECT_EQ(picture.pixel(31, 0), redPixel);
    EXPECT_EQ(picture.pixel(50, 50), redPixel);
    EXPECT_EQ(picture.pixel(92, 92), blackPixel);
    EXPECT_EQ(picture.pixel(89, 89), redPixel);
}

TEST(Canvas, ContinuousCornersBeginToBendBeforeTheRadius) {
    Node round = screenNode(200, 200);
    round.background = red;
    round.cornerRadius = 40;
    Node continuous = round;
    continuous.continuousCorners = true;
    const Surface circular = render(round, {200, 200}, 2);
    const Surface squircle = render(continuous, {200, 200}, 2);
    // 44 points along the top edge: the arc has ended there, the continuous corner has not.
    EXPECT_EQ(circular.pixel(2 * 44, 0), redPixel);
    EXPECT_LT(redOf(squircle.pixel(2 * 44, 0)), 255);
    // Past one and a half radii both are straight.
    EXPECT_EQ(squircle.pixel(2 * 62, 0), redPixel);
}

TEST(Canvas, ContinuousCornersWithoutRoomAreACircle) {
    Node round = screenNode(60, 60);
    round.background = red;
    round.cornerRadius = 30;
    Node continuous = round;
    continuous.continuousCorners = true;
    EXPECT_LE(largestDifference(render(round, {60, 60}, 1), render(continuous, {60, 60}, 1)), 2);
}

TEST(Canvas, RadiusBeyondHalfTheSideIsClamped) {
    Node large = screenNode(40, 20);
    large.background = red;
    large.cornerRadius = 500;
    Node half = large;
    half.cornerRadius = 10;
    EXPECT_EQ(largestDifference(render(large, {40, 20}, 1), render(half, {40, 20}, 1)), 0);
}

TEST(Canvas, ChildrenReachBeyondUnlessMasked) {
    Node root = screenNode(40, 40);
    Node holder = nodeWithFrame("holder", {{10, 10}, {20, 20}});
    holder.children.push_back(fillNode({{-10, -10}, {40, 40}}, red));
    root.children.push_back(holder);
    EXPECT_EQ(render(root, {40, 40}, 1).pixel(2, 2), redPixel);
    root.children[0].masksToBounds = true;
    const Surface masked = render(root, {40, 40}, 1);
    EXPECT_EQ(masked.pixel(2, 2), blackPixel);
    EXPECT_EQ(masked.pixel(9, 20), blackPixel);
    EXPECT_EQ(masked.pixel(10, 20), redPixel);
}

TEST(Canvas, MaskingFollowsRoundedCorners) {
    Node root = screenNode(40, 40);
    root.cornerRadius = 20;
    root.masksToBounds = true;
    root.children.push_back(fillNode({{0, 0}, {40, 40}}, red));
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(2, 2), blackPixel);
    EXPECT_EQ(picture.pixel(20, 1), redPixel);
}

TEST(Canvas, BoundsOriginScrollsTheChildren) {
    Node root = screenNode(40, 40);
    root.bounds.origin = {0, 10};
    root.children.push_back(fillNode({{0, 10}, {40, 5}}, red));
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(20, 0), redPixel);
    EXPECT_EQ(picture.pixel(20, 5), blackPixel);
}

TEST(Canvas, HiddenAndInvisibleNodesDrawNothing) {
    Node root = screenNode(10, 10);
    root.children.push_back(fillNode({{0, 0}, {10, 10}}, red));
    root.children[0].hidden = true;
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), blackPixel);
    root.children[0].hidden = false;
    root.children[0].opacity = 0;
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), blackPixel);
}

TEST(Canvas, LaterChildrenLieOnTop) {
    Node root = screenNode(10, 10);
    root.children.push_back(fillNode({{0, 0}, {10, 10}}, red));
    root.children.push_back(fillNode({{0, 0}, {10, 10}}, blue));
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), bluePixel);
}

// A see-through group is flattened first: what its upper child covers must not show.
TEST(Canvas, GroupOpacityDoesNotShowWhatIsCovered) {
    Node root = screenNode(10, 10);
    Node group = fillNode({{0, 0}, {10, 10}}, red);
    group.children.push_back(fillNode({{0, 0}, {10, 10}}, blue));
    group.opacity = 0.5;
    root.children.push_back(group);
    const unsigned pixel = render(root, {10, 10}, 1).pixel(5, 5);
    EXPECT_EQ(redOf(pixel), 0);
    EXPECT_NEAR(blueOf(pixel), 128, 1);
}

TEST(Canvas, OpacityOfASingleThingIsThatOfItsColour) {
    Node faded = screenNode(10, 10);
    faded.children.push_back(fillNode({{1, 1}, {8, 8}}, red));
    faded.opacity = 0.5;
    Node coloured = screenNode(10, 10);
    coloured.children.push_back(fillNode({{1, 1}, {8, 8}}, {1, 0, 0, 0.5}));
    EXPECT_LE(largestDifference(render(faded, {10, 10}, 1), render(coloured, {10, 10}, 1)), 1);
}

TEST(Canvas, NestedOpacitiesMultiply) {
    Node root = screenNode(10, 10);
    Node outer = nodeWithFrame("outer", {{0, 0}, {10, 10}});
    Node inner = fillNode({{0, 0}, {10, 10}}, white);
    inner.children.push_back(fillNode({{0, 0}, {10, 10}}, white));
    inner.opacity = 0.5;
    outer.opacity = 0.5;
    outer.children.push_back(inner);
    root.children.push_back(outer);
    EXPECT_NEAR(redOf(render(root, {10, 10}, 1).pixel(5, 5)), 64, 2);
}

TEST(Canvas, TransformTurnsAboutTheAnchor) {
    Node root = screenNode(40, 40);
    Node bar = fillNode({{10, 18}, {20, 4}}, red);
    bar.transform = {0, 1, -1, 0, 0, 0};  // a quarter turn
    root.children.push_back(bar);
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(20, 11), redPixel);
    EXPECT_EQ(picture.pixel(20, 28), redPixel);
    EXPECT_EQ(picture.pixel(12, 20), blackPixel);
}

TEST(Canvas, AnchorAtTheCornerKeepsTheCornerInPlace) {
    Node root = screenNode(40, 40);
    Node box = fillNode({{0, 0}, {10, 10}}, red);
    box.anchor = {0, 0};
    box.position = {10, 10};
    box.transform = {2, 0, 0, 2, 0, 0};
    root.children.push_back(box);
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(9, 9), blackPixel);
    EXPECT_EQ(picture.pixel(10, 10), redPixel);
    EXPECT_EQ(picture.pixel(29, 29), redPixel);
    EXPECT_EQ(picture.pixel(30, 30), blackPixel);
}

// The translation of a transform is in the parent's units: it is not scaled by its own matrix.
TEST(Canvas, TranslationComesAfterTheScale) {
    Node root = screenNode(40, 40);
    Node box = fillNode({{5, 5}, {10, 10}}, red);
    box.transform = {2, 0, 0, 2, 10, 0};
    root.children.push_back(box);
    const Surface picture = render(root, {40, 40}, 1);
    EXPECT_EQ(picture.pixel(9, 10), blackPixel);
    EXPECT_EQ(picture.pixel(10, 10), redPixel);
    EXPECT_EQ(picture.pixel(29, 10), redPixel);
    EXPECT_EQ(picture.pixel(30, 10), blackPixel);
}

TEST(Canvas, TransformOfAParentMovesItsChildren) {
    Node turned = screenNode(40, 40);
    Node parent = nodeWithFrame("parent", {{0, 0}, {40, 40}});
    parent.transform = {1, 0, 0, 1, 7, 3};
    parent.children.push_back(fillNode({{5, 5}, {10, 10}}, red));
    turned.children.push_back(parent);
    Node plain = screenNode(40, 40);
    plain.children.push_back(fillNode({{12, 8}, {10, 10}}, red));
    EXPECT_EQ(largestDifference(render(turned, {40, 40}, 2), render(plain, {40, 40}, 2)), 0);
}

TEST(Canvas, FlattenedTransformDrawsNothingAndHarmsNothing) {
    Node root = screenNode(10, 10);
    root.children.push_back(fillNode({{0, 0}, {10, 10}}, red));
    root.children.push_back(fillNode({{0, 0}, {10, 10}}, blue));
    root.children[0].transform = {0, 0, 0, 0, 0, 0};
    EXPECT_EQ(render(root, {10, 10}, 1).pixel(5, 5), bluePixel);
}

TEST(Canvas, BorderLiesInside) {
    Node root = screenNode(20, 20);
    Node box = nodeWithFrame("box", {{4, 4}, {12, 12}});
    box.borderWidth = 2;
    box.border = green;
    root.children.push_back(box);
    const Surface picture = render(root, {20, 20}, 1);
    EXPECT_EQ(picture.pixel(3, 10), blackPixel);
    EXPECT_EQ(picture.pixel(4, 10), greenPixel);
    EXPECT_EQ(picture.pixel(5, 10), greenPixel);
    EXPECT_EQ(picture.pixel(6, 10), blackPixel);
}

TEST(Canvas, MaskShowsOnlyWhereItIsOpaque) {
    Node root = screenNode(20, 20);
    Node box = fillNode({{0, 0}, {20, 20}}, red);
    box.mask = std::make_shared<Node>(fillNode({{0, 0}, {10, 20}}, black));
    root.children.push_back(box);
    const Surface picture = render(root, {20, 20}, 1, white);
    EXPECT_EQ(picture.pixel(5, 10), redPixel);
    EXPECT_EQ(picture.pixel(15, 10), whitePixel);
}

TEST(Canvas, ShadowDarkensAroundTheLayer) {
    Node root = screenNode(60, 60);
    Node box = fillNode({{20, 20}, {20, 20}}, white);
    box.shadow = Shadow{{0, 0, 0, 1}, 4, {0, 0}};
    root.children.push_back(box);
    const Surface picture = render(root, {60, 60}, 1, white);
    EXPECT_LT(redOf(picture.pixel(30, 42)), 200);
    EXPECT_EQ(picture.pixel(30, 30), whitePixel);
    EXPECT_EQ(picture.pixel(2, 2), whitePixel);
}

TEST(Canvas, GradientRunsFromStartToEnd) {
    Node root = screenNode(100, 10);
    root.content = Gradient{{{0, black}, {1, white}}, {0, 0.5}, {1, 0.5}, false};
    const Surface picture = render(root, {100, 10}, 1);
    EXPECT_NEAR(redOf(picture.pixel(0, 5)), 1, 2);
    EXPECT_NEAR(redOf(picture.pixel(50, 5)), 128, 3);
    EXPECT_NEAR(redOf(picture.pixel(99, 5)), 254, 2);
}

void setPixel(const Surface& surface, int x, int y, std::uint32_t pixel) {
    auto* row = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()) +
                                                 y * cairo_image_surface_get_stride(surface.get()));
    row[x] = pixel;
    cairo_surface_mark_dirty(surface.get());
}

// Two pixels, 0 and 80, enlarged four times: their middles lie at 2 and 6, so that the middles of the
// large pixels between, at 2.5 to 5.5, have 1, 3, 5 and 7 eighths of the second.
TEST(PixelLoops, EnlargeStraightFromMiddleToMiddle) {
    Smear smear{Surface(2, 1), 4, 0, 0};
    setPixel(smear.surface, 0, 0, 0xff000000);
    setPixel(smear.surface, 1, 0, 0xff505050);
    const Surface large = enlarged(smear, {0, 0, 8, 4});
    const unsigned expected[] = {0, 0, 10, 30, 50, 70, 80, 80};
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 8; ++x) EXPECT_EQ(large.pixel(x, y) & 0xff, expected[x]) << x;
    }
    // A part of it shows the same, wherever it begins.
    const Surface part = enlarged(smear, {3, 1, 3, 2});
    for (int x = 0; x < 3; ++x) EXPECT_EQ(part.pixel(x, 1) & 0xff, expected[3 + x]);
}

TEST(PixelLoops, EnlargeDownAsAcross) {
    Smear smear{Surface(1, 2), 2, 10, 20};
    setPixel(smear.surface, 0, 0, 0xff000000);
    setPixel(smear.surface, 0, 1, 0xff404040);
    const Surface large = enlarged(smear, {10, 20, 2, 4});
    const unsigned expected[] = {0, 16, 48, 64};  // quarters
    for (int y = 0; y < 4; ++y) EXPECT_EQ(large.pixel(1, y) & 0xff, expected[y]);
}

// Nineteen pixels are a vector and a rest.
TEST(PixelLoops, LayOverTakesTheRestOfWhatLiesBelow) {
    Surface from(21, 2), to(21, 2);
    for (int x = 0; x < 21; ++x) setPixel(from, x, 1, 0xff6496c8);  // 100, 150, 200
    layOver(from, to, {1, 1, 19, 1}, {1, 0, 0, 0.4});
    // 0.4 is 102 of 255: 102 + 100 * 153 / 255, 150 * 153 / 255, 200 * 153 / 255.
    for (int x = 1; x < 20; ++x) EXPECT_EQ(to.pixel(x, 1), 0xffa25a78u) << x;
    EXPECT_EQ(to.pixel(0, 1), 0u);
    EXPECT_EQ(to.pixel(20, 1), 0u);
    EXPECT_EQ(to.pixel(5, 0), 0u);
}

// Rows of the whole surface are laid as one.
TEST(PixelLoops, LayOverTakesRowsOfTheWholeSurfaceAndNoOther) {
    Surface from(21, 5), to(21, 5);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 21; ++x) setPixel(from, x, y, 0xff6496c8);
    }
    layOver(from, to, {0, 1, 21, 3}, {1, 0, 0, 0.4});
    for (int y = 0; y < 5; ++y) {
        const unsigned expected = y > 0 && y < 4 ? 0xffa25a78u : 0u;
        for (int x = 0; x < 21; ++x) EXPECT_EQ(to.pixel(x, y), expected) << x << ", " << y;
    }
}

// Cairo is asked for the same, on a picture in which no two neighbours are alike.
TEST(PixelLoops, LayThroughGivesWhatCairoGivesForAMask) {
    for (const double alpha : {1.0, 0.35, 0.5}) {
        for (const int side : {5, 16, 37, 55}) {
            const Colour colour{0.9, 0.3, 0.6, alpha};
            const Stamp stamp = outlineStamp({1, 0, 0, 1, 3.25, 2.5},
                                             {{0, 0}, {side - 0.5, side - 0.5}}, side / 3.0, true);
            const Surface ours(64, 64, CAIRO_FORMAT_RGB24);
            for (int y = 0; y < 64; ++y) {
                for (int x = 0; x < 64; ++x)
                    setPixel(ours, x, y,
                             0xff000000 | (static_cast<unsigned>(x * y) * 2654435761U >> 8));
            }
            const Surface cairos = copyOf(ours);
            const PixelBox box{6, 4, 40, 50};
            layThrough(stamp, ours, box, colour);
            const Context context = contextOf(cairos);
            cairo_rectangle(context.get(), box.x, box.y, box.width, box.height);
            cairo_clip(context.get());
            setSource(context.get(), colour);
            cairo_mask_surface(context.get(), stamp.pixels.get(), stamp.x, stamp.y);
            cairo_surface_flush(cairos.get());
            EXPECT_EQ(largestDifference(ours, cairos), 0) << alpha << ", " << side;
        }
    }
}

TEST(Stamps, AreMadeOnceForEachEighthOfAPixel) {
    const auto at = [](double x) { return cairo_matrix_t{2, 0, 0, 2, x, 7}; };
    const Rect rect{{0, 0}, {10, 10}};
    const Stamp first = outlineStamp(at(3.25), rect, 3, false);
    EXPECT_EQ(first.x, 3);
    EXPECT_EQ(first.y, 7);
    EXPECT_EQ(first.pixels.width(), 21);
    const Stamp moved = outlineStamp(at(40.24), rect, 3, false);
    EXPECT_EQ(moved.pixels.get(), first.pixels.get());
    EXPECT_EQ(moved.x, 40);
    EXPECT_NE(outlineStamp(at(3.5), rect, 3, false).pixels.get(), first.pixels.get());
    EXPECT_NE(outlineStamp(at(3.25), rect, 4, false).pixels.get(), first.pixels.get());
}

TEST(Stamps, DoNotTurnAndAreNotOfAWholeScreen) {
    const Rect rect{{0, 0}, {10, 10}};
    EXPECT_TRUE(isFitForStamp({1, 0, 0, 1, 0, 0}, rect));
    EXPECT_FALSE(isFitForStamp({1, 0.1, 0, 1, 0, 0}, rect));
    EXPECT_FALSE(isFitForStamp({-1, 0, 0, 1, 0, 0}, rect));
    EXPECT_FALSE(isFitForStamp({1, 0, 0, 1, 0, 0}, {{0, 0}, {375, 812}}));
}

// What lies in the middle of a rounded layer, at its edge and in its corner.
TEST(Painter, CutsByARoundedLayerWhereItReaches) {
    for (const Rect child :
         {Rect{{40, 40}, {20, 20}}, Rect{{0, 0}, {100, 100}}, Rect{{-30, 30}, {160, 40}}}) {
        Node root = screenNode(100, 100);
        Node layer = fillNode({{0, 0}, {100, 100}}, {0, 0, 0, 0}, 30);
        layer.masksToBounds = true;
        layer.children.push_back(fillNode(child, red));
        root.children.push_back(layer);
        const Surface shown = render(root, {100, 100}, 1, white);
        EXPECT_EQ(shown.pixel(50, 50), redPixel);
        EXPECT_EQ(shown.pixel(1, 1), whitePixel);
        EXPECT_EQ(shown.pixel(98, 98), whitePixel);
    }
}

// A small child shows what a large one shows there, which the outline surely cuts: but for what cairo makes
// of the edge of either, a few steps of 255.
TEST(Painter, CutsWhatLiesInACornerAsItCutsAll) {
    const auto shown = [](Rect child, bool continuous) {
        Node root = screenNode(100, 100);
        Node layer = fillNode({{0, 0}, {100, 100}}, {0, 0, 0, 0}, 30);
        layer.continuousCorners = continuous;
        layer.masksToBounds = true;
        layer.children.push_back(fillNode(child, red));
        root.children.push_back(layer);
        return render(root, {100, 100}, 1, white);
    };
    for (const bool continuous : {false, true}) {
        const Surface all = shown({{-10, -10}, {120, 120}}, continuous);
        for (int y = 0; y < 50; y += 3) {
            for (int x = 0; x < 50; x += 3) {
                const Surface one = shown({{x * 1.0, y * 1.0}, {4, 4}}, continuous);
                for (int i = 0; i < 16; ++i)
                    ASSERT_NEAR(blueOf(one.pixel(x + i % 4, y + i / 4)),
                                blueOf(all.pixel(x + i % 4, y + i / 4)), 12)
                        << x << ", " << y;
            }
        }
    }
}

}  // namespace
}  // namespace simulator::rendering
