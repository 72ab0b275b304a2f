// What is the same to a caller, and what is not.
#include "simulator/loader/shape.hpp"

#include <gtest/gtest.h>

namespace simulator::loader::tests {
namespace {

struct Pair {
    const char* encoding;
    const char* shape;
};
class ShapeTest : public testing::TestWithParam<Pair> {};
TEST_P(ShapeTest, KeepsWhatTravels) { EXPECT_EQ(shape(GetParam().encoding), GetParam().shape); }
INSTANTIATE_TEST_SUITE_P(
    Encodings, ShapeTest,
    testing::Values(Pair{"v16@0:8", "v@:"}, Pair{"v@:d", "v@:d"}, Pair{"v@:f", "v@:f"},
                    Pair{"v24@0:8{CGSize=dd}16", "v@:{dd}"},
                    Pair{"{_NSRect={_NSPoint=dd}{_NSSize=dd}}16@0:8", "{{dd}{dd}}@:"},
                    Pair{"v@:@?", "v@:@"}, Pair{"v@:@\"NSString\"q", "v@:@q"}, Pair{"C@:c", "B@:B"},
                    Pair{"L@:lQ", "q@:qq"}, Pair{"I@:S", "i@:s"}, Pair{"Vv@:r*", "v@:*"},
                    Pair{"v@:^{CGRect=dd}q", "v@:^q"}, Pair{"v@:^^v#", "v@:^#"}, Pair{"", ""},
                    Pair{nullptr, ""},
                    // Cut off inside: what there is, and no more.
                    Pair{"v@:{CGRect={CGPoint=d", "v@:{{d}}"}, Pair{"v@:@\"NSStr", "v@:@"},
                    Pair{"v@:^", "v@:^"}));

}  // namespace
}  // namespace simulator::loader::tests
