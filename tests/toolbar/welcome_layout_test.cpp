// Where the parts of the welcome pager stand, in points, worked out by hand for phones upright and on
// their side.
#include <gtest/gtest.h>

#include "toolbar/welcome_pages.hpp"

namespace vantori::tests {
namespace {

void expectRect(CGRect actual, CGRect expected, const char* what) {
    EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9) << what;
    EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9) << what;
    EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9) << what;
    EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9) << what;
}

// Below the header 698 points are left: 220 more than on the smallest screen, of which 33 lie above the
// picture, and 40 of 100 are the picture's.
TEST(WelcomeLayoutOf, ATallScreen) {
    const WelcomeLayout layout({375, 812}, 44);
    expectRect(layout.view(), rect(0, 0, 375, 812), "view");
    expectRect(layout.header(), rect(15, 54, 300, 50), "header");
    expectRect(layout.counter(), rect(305, 54, 50, 50), "counter");
    expectRect(layout.scroll(), rect(0, 114, 375, 698), "scroll view");
    EXPECT_EQ(layout.content(), (CGSize{1500, 698}));
    expectRect(layout.picture(1), rect(375 + 20, 33, 335, 279.2), "picture");
    expectRect(layout.dots(), rect(137.5, 114 + 33 + 279.2 + 12, 100, 10), "dots");
    expectRect(layout.title(2), rect(750 + 20, 312.2 + 12 + 10 + 12, 335, 32), "title");
    expectRect(layout.description(2, 60), rect(770, 346.2 + 32 + 6, 335, 60), "description");
    expectRect(layout.fullVersionButton(), rect(1125 + 30, 668 - 40 - 50, 315, 40), "full version");
    expectRect(layout.backButton(), rect(1155, 668 - 40, 315, 40), "back");
    expectRect(layout.away(), rect(0, -862, 375, 812), "away");
}

TEST(WelcomeLayoutOf, AScreenSoTallThatThePictureIsAsHighAsItGets) {
    // 910 below the header: 432 beyond the smallest, of which 0.15 is 64.8; 0.4 would be 364.
    expectRect(WelcomeLayout({414, 1000}, 20).picture(0), rect(20, 64.8, 374, 340), "picture");
}

TEST(WelcomeLayoutOf, TheSmallestScreenAndLess) {
    expectRect(WelcomeLayout({320, 568}, 20).picture(0), rect(20, 0, 280, 191.2), "picture");
    expectRect(WelcomeLayout({320, 480}, 20).picture(0), rect(20, 0, 280, 156), "picture");
}

// 305 points below the header, of which the buttons take 60, the dots and their gap 22. Longer than twice
// its height it has a notch, which takes 44 at either end.
TEST(WelcomeLayoutOf, ALongScreenOnItsSide) {
    const WelcomeLayout layout({812, 375}, 0);
    expectRect(layout.scroll(), rect(0, 70, 812, 305), "scroll view");
    expectRect(layout.picture(1), rect(812 + 44, 0, 352, 223), "picture");
    expectRect(layout.dots(), rect(356, 70 + 223 + 12, 100, 10), "dots");
    expectRect(layout.title(1), rect(812 + 406 + 10, 0, 352, 32), "title");
    expectRect(layout.description(1, 50), rect(1228, 38, 352, 50), "description");
    expectRect(layout.fullVersionButton(), rect(2436 + 44, 255, 357, 40), "full version");
    expectRect(layout.backButton(), rect(2480 + 357 + 10, 255, 357, 40), "back");
}

TEST(WelcomeLayoutOf, AShortScreenOnItsSide) {
    const WelcomeLayout layout({568, 320}, 0);
    expectRect(layout.picture(0), rect(20, 0, 254, 168), "picture");
    expectRect(layout.fullVersionButton(), rect(1704 + 30, 200, 249, 40), "full version");
    // Twice as long as high is not long yet, and as long as high is not on its side.
    expectRect(WelcomeLayout({640, 320}, 0).picture(0), rect(20, 0, 290, 168), "picture");
    expectRect(WelcomeLayout({400, 400}, 0).backButton(), rect(1230, 260, 340, 40), "back");
}

}  // namespace
}  // namespace vantori::tests
