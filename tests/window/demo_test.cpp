// The demonstration's scenes, and how a screen lies in a window.
#include <gtest/gtest.h>

#include <set>

#include "simulator/rendering/fingerprint.hpp"
#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/parser.hpp"
#include "simulator/window/demo_page.hpp"
#include "simulator/window/demo_scenes.hpp"
#include "simulator/window/demo_story.hpp"
#include "simulator/window/fit.hpp"

namespace {

using namespace simulator;
using namespace simulator::window;

TEST(DemoScenes, ParseAndWriteThePictureThatTheyName) {
    std::set<std::string_view> pictures;
    for (const DemoScene& scene : demoScenes()) {
        ASSERT_NO_THROW(scenario::parse(scene.scenario)) << scene.name;
        const std::string written = "\"" + std::string(scene.picture) + "\"";
        EXPECT_NE(scene.scenario.find(written), std::string_view::npos) << scene.name;
        EXPECT_TRUE(pictures.insert(scene.picture).second) << scene.name;
    }
}

TEST(DemoScenes, HaveTheCoverAmongTheFramedOnes) {
    bool found = false;
    for (const DemoScene& scene : demoScenes())
        found = found || (scene.name == coverScene() && scene.framed);
    EXPECT_TRUE(found);
}

std::size_t occurrences(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST(DemoPage, ShowsThePictureOfEverySceneOnce) {
    const std::string page = demoPage(demoScenes());
    for (const DemoScene& scene : demoScenes())
        EXPECT_EQ(occurrences(page, "<img src=\"" + std::string(scene.picture) + "\""), 1u)
            << scene.name;
    EXPECT_EQ(occurrences(page, "<img"), demoScenes().size());
    EXPECT_EQ(occurrences(page, "<figcaption>"), demoScenes().size());
}

TEST(DemoPage, TellsThemInTheOrderOfTheStory) {
    const std::string page = demoPage(demoScenes());
    EXPECT_LT(page.find("src=\"welcome.png\""), page.find("src=\"home-light.png\""));
    EXPECT_LT(page.find("src=\"home-light.png\""), page.find("src=\"app-pull.png\""));
    EXPECT_LT(page.find("src=\"app-pull.png\""), page.find("src=\"toggles.png\""));
}

TEST(DemoPage, NeedsNothingFromElsewhereAndFollowsTheReadersPreference) {
    const std::string page = demoPage(demoScenes());
    EXPECT_EQ(occurrences(page, "://"), 0u);
    EXPECT_EQ(occurrences(page, "<script"), 0u);
    EXPECT_EQ(occurrences(page, "@media (prefers-color-scheme: dark)"), 1u);
}

TEST(DemoPage, LeavesOutWhatWasNotDrawn) {
    const DemoScene only{"welcome", "a\"&b.png", "", "", true};
    const std::string page = demoPage({&only, 1});
    EXPECT_EQ(occurrences(page, "<img src=\"a&quot;&amp;b.png\""), 1u);
    EXPECT_EQ(occurrences(page, "<img"), 1u);
    EXPECT_EQ(occurrences(page, "<h2>"), 1u);
}

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

TEST(Fit, GivesAWindowThatLeavesRoomOnTheDisplay) {
    EXPECT_DOUBLE_EQ(windowSize({375, 812}, {1920, 1080}).height, 812);
    EXPECT_NEAR(windowSize({375, 812}, {1280, 800}).height, 720, 1e-9);
}

TEST(Fingerprint, TellsTreesApart) {
    rendering::Node node = rendering::nodeWithFrame("a", {{0, 0}, {10, 10}});
    const auto before = rendering::fingerprint(node);
    EXPECT_EQ(rendering::fingerprint(node), before);
    node.children.push_back(rendering::nodeWithFrame("b", {{1, 1}, {2, 2}}));
    const auto withChild = rendering::fingerprint(node);
    EXPECT_NE(withChild, before);
    node.children[0].opacity = 0.5;
    EXPECT_NE(rendering::fingerprint(node), withChild);
}

}  // namespace
