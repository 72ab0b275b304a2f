#include "simulator/hardware/device_table.hpp"

#include <algorithm>
#include <array>

namespace simulator {

namespace {

constexpr bool button = true;
constexpr bool none = false;

constexpr std::array devices{
    DeviceModel{"iPhone6,1", 320, 568, 2, button},  DeviceModel{"iPhone6,2", 320, 568, 2, button},
    DeviceModel{"iPhone7,1", 414, 736, 3, button},  DeviceModel{"iPhone7,2", 375, 667, 2, button},
    DeviceModel{"iPhone8,1", 375, 667, 2, button},  DeviceModel{"iPhone8,2", 414, 736, 3, button},
    DeviceModel{"iPhone8,4", 320, 568, 2, button},  DeviceModel{"iPhone9,1", 375, 667, 2, button},
    DeviceModel{"iPhone9,2", 414, 736, 3, button},  DeviceModel{"iPhone9,3", 375, 667, 2, button},
    DeviceModel{"iPhone9,4", 414, 736, 3, button},  DeviceModel{"iPhone10,1", 375, 667, 2, button},
    DeviceModel{"iPhone10,2", 414, 736, 3, button}, DeviceModel{"iPhone10,4", 375, 667, 2, button},
    DeviceModel{"iPhone10,5", 414, 736, 3, button}, DeviceModel{"iPhone10,3", 375, 812, 3, none},
    DeviceModel{"iPhone10,6", 375, 812, 3, none},   DeviceModel{"iPhone11,2", 375, 812, 3, none},
    DeviceModel{"iPhone11,4", 414, 896, 3, none},   DeviceModel{"iPhone11,6", 414, 896, 3, none},
    DeviceModel{"iPhone11,8", 414, 896, 2, none},   DeviceModel{"iPhone12,1", 414, 896, 2, none},
    DeviceModel{"iPhone12,3", 375, 812, 3, none},   DeviceModel{"iPhone12,5", 414, 896, 3, none},
    DeviceModel{"iPhone12,8", 375, 667, 2, button}, DeviceModel{"iPhone13,1", 375, 812, 3, none},
    DeviceModel{"iPhone13,2", 390, 844, 3, none},   DeviceModel{"iPhone13,3", 390, 844, 3, none},
    DeviceModel{"iPhone13,4", 428, 926, 3, none},
};

}  // namespace

std::span<const DeviceModel> deviceModels() { return devices; }

const DeviceModel* findDevice(std::string_view identifier) {
    const auto* found = std::ranges::find(devices, identifier, &DeviceModel::identifier);
    return found == devices.end() ? nullptr : found;
}

}  // namespace simulator
