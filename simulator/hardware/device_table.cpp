#include "simulator/hardware/device_table.hpp"

#include <algorithm>
#include <array>
#include <charconv>

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

// What comes before the table's first entry: small phones with a home button.
bool isEarly(std::string_view identifier) {
    constexpr std::string_view family = "iPhone";
    if (identifier.starts_with("iPod")) return true;
    if (!identifier.starts_with(family)) return false;
    int generation = 0;
    identifier.remove_prefix(family.size());
    auto [end, error] =
        std::from_chars(identifier.data(), identifier.data() + identifier.size(), generation);
    return error == std::errc() && generation > 0 && generation <= 6;
}

}  // namespace

DeviceModel findDevice(std::string_view identifier) {
    auto found = std::ranges::find(devices, identifier, &DeviceModel::identifier);
    if (found != devices.end()) return *found;
    if (isEarly(identifier)) return {identifier, 320, 568, 2, button};
    return {identifier, 375, 812, 3, none};
}

}  // namespace simulator
