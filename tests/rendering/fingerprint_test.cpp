// The fingerprint that tells the window whether there is anything to draw again.
#include "simulator/rendering/fingerprint.hpp"

#include <gtest/gtest.h>

namespace {

using namespace simulator;

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
