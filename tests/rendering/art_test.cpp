// The phone's own art: every symbol, icon and screen is there and keeps to its place.
#include <gtest/gtest.h>

#include <set>

#include "simulator/rendering/app_art.hpp"
#include "simulator/rendering/chrome.hpp"
#include "simulator/rendering/icon_art.hpp"
#include "simulator/rendering/symbols.hpp"
#include "simulator/rendering/wallpaper.hpp"
#include "tests/rendering/drawing.hpp"

namespace simulator::rendering {
namespace {

Surface symbolPicture(const std::string& name, Colour colour, double progress = 1) {
    Node root = screenNode(48, 48);
    root.children.push_back(symbolNode({{0, 0}, {48, 48}}, name, colour, progress));
    return render(root, {48, 48}, 1);
}

int lightOf(const Surface& picture) {
    int sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) sum += redOf(picture.pixel(x, y));
    }
    return sum;
}

class EverySymbol : public testing::TestWithParam<std::string> {};

TEST_P(EverySymbol, DrawsInItsColour) {
    const Surface picture = symbolPicture(GetParam(), red);
    EXPECT_GT(lightOf(picture), 48 * 255);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 48; ++x) EXPECT_EQ(greenOf(picture.pixel(x, y)), 0);
    }
}

// Strokes that cross do not show through one another.
TEST_P(EverySymbol, IsEvenWhenSeeThrough) {
    const Surface picture = symbolPicture(GetParam(), {1, 1, 1, 0.5});
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 48; ++x) EXPECT_LE(redOf(picture.pixel(x, y)), 129);
    }
}

std::string testName(const testing::TestParamInfo<std::string>& symbol) {
    std::string name = symbol.param;
    for (char& letter : name) {
        if (letter == '.' || letter == '-') letter = '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, EverySymbol, testing::ValuesIn(symbolNames()), testName);

TEST(Symbols, UnknownNamesDrawNothing) {
    EXPECT_FALSE(hasSymbol("no such glyph"));
    EXPECT_EQ(lightOf(symbolPicture("no such glyph", white)), 0);
}

TEST(Symbols, ProgressFillsIndicators) {
    for (const char* name : {"battery", "signal", "wifi", "speaker", "sun", "low-power"}) {
        EXPECT_LT(lightOf(symbolPicture(name, white, 0.2)), lightOf(symbolPicture(name, white, 1)))
            << name;
    }
}

class EveryApplication : public testing::TestWithParam<const char*> {};

TEST_P(EveryApplication, HasAnIconWithCutCorners) {
    Node root = screenNode(60, 60);
    root.children.push_back(imageNode({{0, 0}, {60, 60}}, iconPicture(GetParam())));
    const Surface picture = render(root, {60, 60}, 3, clear);
    EXPECT_EQ(alphaOf(picture.pixel(1, 1)), 0);
    EXPECT_EQ(alphaOf(picture.pixel(178, 178)), 0);
    EXPECT_EQ(alphaOf(picture.pixel(90, 2)), 255);
    EXPECT_EQ(alphaOf(picture.pixel(90, 90)), 255);
}

TEST_P(EveryApplication, HasAScreenThatCoversItsWindow) {
    for (const bool dark : {false, true}) {
        for (const Size size : {Size{375, 812}, Size{812, 375}, Size{320, 200}}) {
            const Surface picture = render(appScreen(GetParam(), size, dark), size, 0.25, clear);
            for (int y = 0; y < picture.height() - 1; y += 5) {
                for (int x = 0; x < picture.width() - 1; x += 5) {
                    ASSERT_EQ(alphaOf(picture.pixel(x, y)), 255) << x << ", " << y;
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryApplication,
                         testing::Values("com.apple.mobilephone", "com.apple.mobilesafari",
                                         "com.apple.MobileSMS", "com.apple.Music",
                                         "com.apple.camera", "com.apple.Preferences",
                                         "com.example.notes", "com.example.maps",
                                         "com.example.mail", "com.example.photos",
                                         "org.elsewhere.weather", ""));

TEST(DisplayName, IsKnownOrTakenFromTheIdentifier) {
    EXPECT_EQ(displayName("com.apple.mobilephone"), "Phone");
    EXPECT_EQ(displayName("com.apple.MobileSMS"), "Messages");
    EXPECT_EQ(displayName("org.elsewhere.weather"), "Weather");
    EXPECT_EQ(displayName("plain"), "Plain");
    EXPECT_EQ(displayName(""), "");
}

TEST(IconPicture, IsMadeOnce) {
    EXPECT_EQ(iconPicture("org.elsewhere.weather"), iconPicture("org.elsewhere.weather"));
}

TEST(Wallpaper, IsKeptForItsSize) {
    const PictureRef first = wallpaper({94, 203}, false);
    EXPECT_EQ(first, wallpaper({94, 203}, false));
    EXPECT_NE(first, wallpaper({94, 203}, true));
    EXPECT_NE(first, wallpaper({203, 94}, false));
    EXPECT_EQ(first->raster(1).width(), 94);
    EXPECT_EQ(first->raster(1).height(), 203);
}

TEST(Wallpaper, IsDarkerInTheDark) {
    EXPECT_LT(lightOf(wallpaper({94, 203}, true)->raster(1)),
              lightOf(wallpaper({94, 203}, false)->raster(1)) / 2);
}

TEST(StatusBar, KeepsOutOfTheNotch) {
    const Node bar = statusBar({}, 375, true);
    EXPECT_EQ(bar.bounds.size.height, 44);
    const Surface picture = render(bar, {375, 44}, 1);
    // The notch is 209 points wide: from 83 to 292.
    for (int x = 90; x < 290; ++x) {
        for (int y = 0; y < 30; ++y) ASSERT_EQ(picture.pixel(x, y), blackPixel) << x << ", " << y;
    }
    EXPECT_GT(lightOf(picture), 10000);
    EXPECT_EQ(statusBar({}, 320, false).bounds.size.height, 20);
}

TEST(HomeIndicator, LiesAtTheBottomInTheMiddle) {
    const Node bar = homeIndicator({375, 812}, white);
    EXPECT_DOUBLE_EQ(bar.position.x, 187.5);
    EXPECT_DOUBLE_EQ(bar.position.y, 801.5);
    EXPECT_DOUBLE_EQ(bar.bounds.size.width, 135);
}

TEST(LockClock, ShowsTimeAndDate) {
    const Surface with =
        render(lockClock("9:41", "Tuesday, 12 September", {375, 812}), {375, 812}, 1);
    const Surface without = render(lockClock("", "", {375, 812}), {375, 812}, 1);
    EXPECT_GT(lightOf(with), 3 * lightOf(without));
}

}  // namespace
}  // namespace simulator::rendering
