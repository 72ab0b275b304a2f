// Frames, bounds, centres and transforms of views.
#include <cmath>
#include <limits>
#include <numbers>

#include "tests/uikit/support.hpp"

namespace simulator::tests {

namespace {

class Geometry : public UIKit {};

CGAffineTransform rotation(double angle) {
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}

TEST_F(Geometry, FrameSetterPlacesTheCentre) {
    auto view = makeView(rect(10, 20, 100, 50));
    EXPECT_EQ(view.center(), (CGPoint{60, 45}));
    view.setBounds(rect(5, 7, 100, 50));
    view.setFrame(rect(0, 0, 40, 30));
    EXPECT_EQ(view.bounds(), rect(5, 7, 40, 30));  // the origin of the bounds is kept
}

TEST_F(Geometry, ScalingShrinksTheFrameAboutTheMiddle) {
    auto view = makeView(rect(0, 0, 375, 100));
    view.setTransform({0.9, 0, 0, 0.9, 0, 0});
    expectRect(view.frame(), rect(0.05 * 375, 5, 0.9 * 375, 90));
}

TEST_F(Geometry, BoundsSizeGrowsTheFrameOnAllSides) {
    auto view = makeView(rect(100, 100, 50, 50));
    view.setBounds(rect(0, 0, 70, 90));
    EXPECT_EQ(view.frame(), rect(90, 80, 70, 90));
}

TEST_F(Geometry, FrameUnderTranslationMovesTheCentreBack) {
    auto view = makeView(rect(0, 0, 60, 40));
    view.setTransform({1, 0, 0, 1, -30, 0});
    view.setFrame(rect(10, 10, 60, 40));
    EXPECT_EQ(view.frame(), rect(10, 10, 60, 40));
    EXPECT_EQ(view.center(), (CGPoint{40 + 30, 30}));
}

TEST_F(Geometry, FrameUnderQuarterTurnsSwapsTheSize) {
    for (double angle : {std::numbers::pi / 2, 3 * std::numbers::pi / 2}) {
        auto view = makeView(rect(0, 0, 375, 812));
        view.setTransform(rotation(angle));
        view.setFrame(rect(0, 0, 812, 375));
        expectRect(view.frame(), rect(0, 0, 812, 375));
        expectRect(view.bounds(), rect(0, 0, 375, 812));
        EXPECT_NEAR(view.center().x, 406, 1e-9);
        EXPECT_NEAR(view.center().y, 187.5, 1e-9);
    }
}

TEST_F(Geometry, AlphaIsKeptAsASingle) {
    auto view = makeView(rect(0, 0, 1, 1));
    view.setAlpha(0.7);
    EXPECT_EQ(view.alpha(), static_cast<double>(0.7f));
    EXPECT_NE(view.alpha(), 0.7);
}

TEST_F(Geometry, ConvertsThroughBoundsOriginsAndTransforms) {
    auto outer = makeView(rect(10, 10, 200, 200));
    outer.setBounds(rect(0, 50, 200, 200));
    auto inner = makeView(rect(20, 80, 100, 100));
    outer.addSubview(inner);
    auto point = outer.convertPointFrom({5, 5}, inner);
    EXPECT_EQ(point, (CGPoint{25, 85}));
    auto back = inner.convertPointFrom(point, outer);
    EXPECT_EQ(back, (CGPoint{5, 5}));
}

TEST_F(Geometry, FlexibleSizesFollowTheSuperview) {
    auto outer = makeView(rect(0, 0, 100, 100));
    auto inner = makeView(rect(10, 10, 80, 80));
    inner.send<"setAutoresizingMask:">(2UL | 16UL);
    outer.addSubview(inner);
    outer.setFrame(rect(0, 0, 200, 150));
    EXPECT_EQ(inner.frame(), rect(10, 10, 180, 130));
}

// As documented: what a superview gains or loses is shared in proportion to the flexible parts.
TEST_F(Geometry, FlexiblePartsShareInProportion) {
    constexpr unsigned long all = 1 | 2 | 4;
    auto outer = makeView(rect(0, 0, 100, 100));
    auto inner = makeView(rect(10, 0, 30, 10));
    inner.send<"setAutoresizingMask:">(all);
    outer.addSubview(inner);
    outer.setFrame(rect(0, 0, 200, 100));
    EXPECT_EQ(inner.frame(), rect(20, 0, 60, 10));  // 10 + 30 + 60 become 20 + 60 + 120
    inner.send<"setAutoresizingMask:">(1UL | 4UL);
    outer.setFrame(rect(0, 0, 270, 100));
    EXPECT_EQ(inner.frame(), rect(30, 0, 60, 10));  // 20 + 120 gain 70: a seventh of it is 10
}

TEST_F(Geometry, FlexibleMarginsOfNothingShareEvenly) {
    auto outer = makeView(rect(0, 0, 100, 100));
    auto inner = makeView(rect(0, 0, 100, 100));
    inner.send<"setAutoresizingMask:">(1UL | 4UL);
    outer.addSubview(inner);
    outer.setFrame(rect(0, 0, 120, 100));
    EXPECT_EQ(inner.frame(), rect(10, 0, 100, 100));
}

// Observed on devices: a size that would become negative is none.
TEST_F(Geometry, FlexibleSizesEndAtNothing) {
    auto outer = makeView(rect(0, 0, 100, 100));
    auto inner = makeView(rect(0, 0, 50, 50));
    inner.send<"setAutoresizingMask:">(2UL);
    outer.addSubview(inner);
    outer.setFrame(rect(0, 0, 20, 100));
    EXPECT_EQ(inner.frame(), rect(0, 0, 0, 50));
}

// Observed on devices: CALayerInvalidGeometry, where the number is stored.
TEST_F(Geometry, WhatIsNoNumberRaises) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    auto view = makeView(rect(0, 0, 10, 10));
    EXPECT_ANY_THROW(view.setCenter({none, 0}));
    EXPECT_ANY_THROW(view.setFrame(rect(0, 0, none, 10)));
    EXPECT_ANY_THROW(view.layer().send<"setPosition:">(CGPoint{0, none}));
    EXPECT_EQ(view.frame(), rect(0, 0, 10, 10));
}

}  // namespace

}  // namespace simulator::tests
