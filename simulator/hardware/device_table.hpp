// The phones that can be simulated: machine identifier, screen in points, pixels per point, and
// whether there is a home button. An identifier outside the table is a phone like its neighbours in
// time: small with a home button before the table begins, 375 points wide without one otherwise.
#pragma once

#include <string_view>

namespace simulator {

struct DeviceModel {
    std::string_view identifier;
    double width;
    double height;
    double scale;
    bool homeButton;
};

DeviceModel findDevice(std::string_view identifier);

}  // namespace simulator
