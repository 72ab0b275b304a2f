// The device table, row by row: screen in points, scale, home button.
#include "simulator/hardware/device_table.hpp"

#include <gtest/gtest.h>

namespace {

using simulator::DeviceModel;
using simulator::findDevice;

class Devices : public testing::TestWithParam<DeviceModel> {};

TEST_P(Devices, HaveTheirScreenAndButton) {
    const DeviceModel& expected = GetParam();
    const DeviceModel* found = findDevice(expected.identifier);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->width, expected.width);
    EXPECT_EQ(found->height, expected.height);
    EXPECT_EQ(found->scale, expected.scale);
    EXPECT_EQ(found->homeButton, expected.homeButton);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Devices,
    testing::Values(
        DeviceModel{"iPhone6,1", 320, 568, 2, true}, DeviceModel{"iPhone8,4", 320, 568, 2, true},
        DeviceModel{"iPhone7,2", 375, 667, 2, true}, DeviceModel{"iPhone8,1", 375, 667, 2, true},
        DeviceModel{"iPhone9,1", 375, 667, 2, true}, DeviceModel{"iPhone10,1", 375, 667, 2, true},
        DeviceModel{"iPhone7,1", 414, 736, 3, true}, DeviceModel{"iPhone9,2", 414, 736, 3, true},
        DeviceModel{"iPhone10,2", 414, 736, 3, true}, DeviceModel{"iPhone10,3", 375, 812, 3, false},
        DeviceModel{"iPhone10,6", 375, 812, 3, false},
        DeviceModel{"iPhone11,2", 375, 812, 3, false},
        DeviceModel{"iPhone12,3", 375, 812, 3, false},
        DeviceModel{"iPhone11,8", 414, 896, 2, false},
        DeviceModel{"iPhone12,1", 414, 896, 2, false},
        DeviceModel{"iPhone11,6", 414, 896, 3, false},
        DeviceModel{"iPhone12,5", 414, 896, 3, false}, DeviceModel{"iPhone12,8", 375, 667, 2, true},
        DeviceModel{"iPhone11,4", 414, 896, 3, false},
        DeviceModel{"iPhone13,1", 375, 812, 3, false},
        DeviceModel{"iPhone13,2", 390, 844, 3, false},
        DeviceModel{"iPhone13,3", 390, 844, 3, false},
        DeviceModel{"iPhone13,4", 428, 926, 3, false}));

TEST(DeviceTable, HasNoOthers) {
    for (const char* identifier :
         {"iPhone3,1", "iPod5,1", "iPhone14,2", "iPhone10,33", "x86_64", ""})
        EXPECT_EQ(findDevice(identifier), nullptr) << identifier;
}

}  // namespace
