// How a screen lies in a window.
#include "simulator/window/fit.hpp"

#include <gtest/gtest.h>

namespace {

using namespace simulator::window;

TEST(Fit, IsAsLargeAsFitsAndInTheMiddle) {
    const Fit wide = fit({100, 200}, {300, 400});
    EXPECT_DOUBLE_EQ(wide.scale, 2);
    EXPECT_DOUBLE_EQ(wide.origin.x, 50);
    EXPECT_DOUBLE_EQ(wide.origin.y, 0);
    EXPECT_DOUBLE_EQ(wide.toPhone({250, 400}).x, 100);
    EXPECT_DOUBLE_EQ(wide.toPhone({250, 400}).y, 200);
    EXPECT_DOUBLE_EQ(fit({0, 0}, {300, 400}).scale, 1);
}

TEST(Fit, HoldsTheEdgeOfTheScreenOutside) {
    EXPECT_TRUE(contains({375, 812}, {0, 811.5}));
    EXPECT_FALSE(contains({375, 812}, {375, 10}));
    EXPECT_FALSE(contains({375, 812}, {-0.1, 10}));
}

// 100 x 200 points with 25 on either side and 50 above and below: 150 x 300.
TEST(Fit, LeavesRoomForThePhoneAroundTheScreen) {
    const Fit lies = fit({100, 200}, {300, 700}, {25, 50});
    EXPECT_DOUBLE_EQ(lies.scale, 2);
    EXPECT_DOUBLE_EQ(lies.origin.x, 50);
    EXPECT_DOUBLE_EQ(lies.origin.y, 150);
    EXPECT_DOUBLE_EQ(lies.toPhone({50, 150}).x, 0);
    EXPECT_DOUBLE_EQ(lies.toPhone({50, 150}).y, 0);
    EXPECT_DOUBLE_EQ(windowSize({100, 200}, {1920, 1080}, {25, 50}).width, 150);
    EXPECT_DOUBLE_EQ(windowSize({100, 200}, {1920, 200}, {25, 50}).height, 180);
}

TEST(Fit, GivesAWindowThatLeavesRoomOnTheDisplay) {
    EXPECT_DOUBLE_EQ(windowSize({375, 812}, {1920, 1080}).height, 812);
    EXPECT_NEAR(windowSize({375, 812}, {1280, 800}).height, 720, 1e-9);
}

}  // namespace
