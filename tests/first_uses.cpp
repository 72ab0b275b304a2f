// GNUstep keeps a few blocks of memory from the first use of some of its parts. They are made before
// each test, phone or no phone, so that what the leak check finds in a test is the test's own.
#include <gtest/gtest.h>

#include "simulator/foundation/first_use.hpp"

namespace simulator {

namespace {

class FirstUses : public testing::Environment {
  public:
    void SetUp() override { makeFirstUses(); }
};

[[maybe_unused]] const testing::Environment* const firstUses =
    testing::AddGlobalTestEnvironment(new FirstUses);

}  // namespace

}  // namespace simulator
