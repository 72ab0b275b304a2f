// The phones that can be simulated: machine identifier, screen in points, pixels per point, and
// whether there is a home button.
#pragma once

#include <span>
#include <string_view>

namespace simulator {

struct DeviceModel {
    std::string_view identifier;
    double width;
    double height;
    double scale;
    bool homeButton;
};

// Null when there is no such phone.
const DeviceModel* findDevice(std::string_view identifier);

std::span<const DeviceModel> deviceModels();

}  // namespace simulator
