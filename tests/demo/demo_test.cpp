// The demonstration's scenes.
#include <gtest/gtest.h>

#include <set>

#include "simulator/demo/demo_scenes.hpp"
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

}  // namespace
