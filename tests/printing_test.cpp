// What a failing test says of geometry and of objects.
#include "tests/printing.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/uikit/support.hpp"

namespace simulator::tests {

namespace {

using ::testing::PrintToString;

class Printing : public UIKit {};

TEST_F(Printing, GeometryReadsAsNumbers) {
    EXPECT_EQ(PrintToString(CGPoint{1, -2.5}), "(1, -2.5)");
    EXPECT_EQ(PrintToString(CGSize{375, 0.1}), "375 x 0.1");
    EXPECT_EQ(PrintToString(rect(0, 697, 375, 115)), "(0, 697; 375 x 115)");
    EXPECT_EQ(PrintToString(identityTransform), "[1, 0, 0, 1, 0, 0]");
}

TEST_F(Printing, NumbersThatDifferReadDifferently) {
    EXPECT_NE(PrintToString(CGPoint{0.1 + 0.2, 0}), PrintToString(CGPoint{0.3, 0}));
}

TEST_F(Printing, ObjectsReadAsTheirClassAndTextsAsTheirWords) {
    const Strong<UIView> view = makeView(rect(0, 0, 1, 1));
    std::ostringstream address;
    address << static_cast<const void*>(view.get());
    EXPECT_EQ(PrintToString(view), "UIView " + address.str());
    EXPECT_EQ(PrintToString(UIView(view)), "UIView " + address.str());
    EXPECT_EQ(PrintToString(UIView()), "nothing");
    EXPECT_EQ(PrintToString("musicBar"_ns), "\"musicBar\"");
    EXPECT_EQ(PrintToString(Object("musicBar"_ns.get())), "\"musicBar\"");
}

}  // namespace

}  // namespace simulator::tests
