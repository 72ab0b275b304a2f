// The demonstration's scenes, and the page that shows their pictures.
#include <gtest/gtest.h>

#include <set>

#include "simulator/demo/demo_page.hpp"
#include "simulator/demo/demo_scenes.hpp"
#include "simulator/demo/demo_story.hpp"
#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/parser.hpp"

namespace {

using namespace simulator;
using namespace simulator::demo;

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

}  // namespace
