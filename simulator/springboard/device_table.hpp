// The phones that can be simulated: machine identifier, screen in points, pixels per point, and
// whether there is a home button.
#pragma once

#include <optional>
#include <string_view>

namespace simulator {

struct DeviceModel {
    std::string_view identifier;
    double width;
    double height;
    double scale;
    bool homeButton;
};

std::optional<DeviceModel> findDevice(std::string_view identifier);

}  // namespace simulator
