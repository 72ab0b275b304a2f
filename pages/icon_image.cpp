#include "pages/icon_image.hpp"

#include "settings/device_profile.hpp"

namespace vantori {

namespace {

constexpr int wholeIconFormat = 999;  // SpringBoard's number up to system 12
constexpr double side = 60;           // points
constexpr double cornerRadius = 12;   // points

UIImage render(SBIcon icon) {
    if (!isSystem13OrLater()) return icon.generateIconImage(wholeIconFormat);
    return icon.generateIconImageWithInfo(
        {{side, side}, UIScreen::mainScreen().scale(), cornerRadius});
}

}  // namespace

UIImage renderedIcon(SBIcon icon) {
    UIImage image = render(icon);
    if (!image.respondsTo(selector<"copyWithZone:">())) return image;
    return Copied<UIImage>(image).autoreleased();
}

UIImage generateIconImageForIdentifier(VNTIconsContainerViewController self, NSString identifier) {
    return self.generateIconImageForIcon(
        SBIconController::shared().model().expectedIcon(identifier));
}

UIImage generateIconImageForIcon(VNTIconsContainerViewController, SBIcon icon) {
    return renderedIcon(icon);
}

}  // namespace vantori
