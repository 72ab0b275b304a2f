#include "simulator/rendering/found_fonts.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

namespace simulator::rendering {
namespace {

TEST(FoundFonts, LeaveNoThreadBehind) {
    findFonts();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}), 1);
}

}  // namespace
}  // namespace simulator::rendering
