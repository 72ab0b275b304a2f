// The radios, and what one does to another.
#include "simulator/services/radios.hpp"

#include <gtest/gtest.h>

namespace {

using namespace simulator;

TEST(Radios, StartAsOnAPhoneInUse) {
    EXPECT_FALSE(isOn(Radio::airplane));
    EXPECT_TRUE(isOn(Radio::cellular));
    EXPECT_FALSE(isOn(Radio::hotspot));
    EXPECT_TRUE(isOn(Radio::wifi));
    EXPECT_TRUE(isOn(Radio::bluetooth));
}

TEST(Radios, AirplaneModeTakesTheOthersDownAndBringsThemBack) {
    switchRadio(Radio::hotspot, true);
    switchRadio(Radio::bluetooth, false);
    switchRadio(Radio::airplane, true);
    for (Radio radio : {Radio::cellular, Radio::hotspot, Radio::wifi, Radio::bluetooth}) {
        EXPECT_FALSE(isOn(radio));
    }
    switchRadio(Radio::airplane, false);
    EXPECT_TRUE(isOn(Radio::cellular));
    EXPECT_TRUE(isOn(Radio::wifi));
    EXPECT_FALSE(isOn(Radio::bluetooth));  // was off before
    EXPECT_FALSE(isOn(Radio::hotspot));    // never comes back by itself
}

TEST(Radios, InTheAirWifiMayBeSwitchedOnButCellularDataMayNot) {
    switchRadio(Radio::airplane, true);
    switchRadio(Radio::wifi, true);
    switchRadio(Radio::cellular, true);
    switchRadio(Radio::hotspot, true);
    EXPECT_TRUE(isOn(Radio::wifi));
    EXPECT_FALSE(isOn(Radio::cellular));
    EXPECT_FALSE(isOn(Radio::hotspot));
    EXPECT_TRUE(isOn(Radio::airplane));
}

TEST(Radios, TheHotspotGoesWithCellularData) {
    switchRadio(Radio::hotspot, true);
    EXPECT_TRUE(isOn(Radio::hotspot));
    switchRadio(Radio::cellular, false);
    EXPECT_FALSE(isOn(Radio::hotspot));
    switchRadio(Radio::cellular, true);
    EXPECT_FALSE(isOn(Radio::hotspot));
}

TEST(Radios, OnlyChangesAreTold) {
    int told = 0;
    onRadioChange([&told] { ++told; });
    switchRadio(Radio::wifi, true);
    EXPECT_EQ(told, 0);
    switchRadio(Radio::wifi, false);
    EXPECT_EQ(told, 1);
}

}  // namespace
