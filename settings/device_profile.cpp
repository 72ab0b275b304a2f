#include "settings/device_profile.hpp"

#include <sys/utsname.h>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>

#include "platform/springboard.hpp"
#include "platform/uikit.hpp"

namespace vantori {

namespace {

struct Model {
    std::string_view machine;
    std::string_view name;
};

constexpr Model models[] = {
    {"iPhone3,1", "iPhone 4"},       {"iPhone3,2", "iPhone 4"},
    {"iPhone3,3", "iPhone 4"},       {"iPhone4,1", "iPhone 4S"},
    {"iPhone5,1", "iPhone 5"},       {"iPhone5,2", "iPhone 5"},
    {"iPhone5,3", "iPhone 5c"},      {"iPhone5,4", "iPhone 5c"},
    {"iPhone6,1", "iPhone 5s"},      {"iPhone6,2", "iPhone 5s"},
    {"iPhone7,1", "iPhone 6 Plus"},  {"iPhone7,2", "iPhone 6"},
    {"iPhone8,1", "iPhone 6s"},      {"iPhone8,2", "iPhone 6s Plus"},
    {"iPhone8,4", "iPhone SE"},      {"iPhone9,1", "iPhone 7"},
    {"iPhone9,2", "iPhone 7 Plus"},  {"iPhone9,3", "iPhone 7"},
    {"iPhone9,4", "iPhone 7 Plus"},  {"iPhone10,1", "iPhone 8"},
    {"iPhone10,4", "iPhone 8"},      {"iPhone10,2", "iPhone 8 Plus"},
    {"iPhone10,5", "iPhone 8 Plus"}, {"iPhone10,3", "iPhone X"},
    {"iPhone10,6", "iPhone X"},      {"iPhone11,2", "iPhone XS"},
    {"iPhone11,4", "iPhone XS Max"}, {"iPhone11,6", "iPhone XS Max"},
    {"iPhone11,8", "iPhone XR"},     {"iPod1,1", "iPod Touch 1G"},
    {"iPod2,1", "iPod Touch 2G"},    {"iPod3,1", "iPod Touch 3G"},
    {"iPod4,1", "iPod Touch 4G"},    {"iPod5,1", "iPod Touch (5 Gen)"},
    {"i386", "Simulator"},           {"x86_64", "Simulator"},
};

// The table above never yields the last three: later phones keep their raw identifier and so get
// the small radius. Deliberate.
constexpr std::string_view roundedModels[] = {
    "iPhone X",  "iPhone XS",     "iPhone XS Max",     "iPhone XR",
    "iPhone 11", "iPhone 11 Pro", "iPhone 11 Pro Max",
};

utsname systemNow() {
    utsname system{};
    uname(&system);
    return system;
}

}  // namespace

std::string_view modelName(std::string_view machine) {
    for (const Model& model : models) {
        if (model.machine == machine) return model.name;
    }
    return machine;
}

NSString getModelName() {
    const utsname system = systemNow();
    // The names in the table are literals and the field ends in zero, so data() is a C string.
    return NSString::from(modelName(system.machine).data());
}

bool isKeyExisted(NSString key, Object object) {
    if (!key) return false;
    unsigned int count = 0;
    const std::unique_ptr<Ivar[], decltype(&std::free)> variables(
        class_copyIvarList(object_getClass(object.get()), &count), &std::free);
    const auto isWanted = [wanted = std::string_view(key.utf8())](Ivar variable) {
        return wanted == ivar_getName(variable);
    };
    return std::ranges::any_of(std::span(variables.get(), count), isWanted);
}

double modelCornerRadius() {
    const utsname system = systemNow();
    const std::string_view model = modelName(system.machine);
    for (std::string_view rounded : roundedModels) {
        if (model == rounded) return 30;
    }
    return 10;
}

bool hasNoHomeButton() { return BSPlatform::shared().homeButtonType() == BSPlatform::noHomeButton; }

bool isSystem13OrLater() {
    return UIDevice::currentDevice().systemVersion().send<"doubleValue", double>() >= 13.0;
}

}  // namespace vantori
