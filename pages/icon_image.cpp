#include "pages/icon_image.hpp"

#include "core/device_profile.hpp"

namespace vantori {

namespace {

constexpr int wholeIconFormat = 999;  // SpringBoard's number up to system 12
constexpr double side = 60;           // points
constexpr double cornerRadius = 12;   // points

}  // namespace

UIImage renderedIcon(SBIcon icon) {
    if (!isSystem13OrLater()) return icon.generateIconImage(wholeIconFormat);
    return icon.generateIconImageWithInfo(
        {{side, side}, UIScreen::mainScreen().scale(), cornerRadius});
}

UIImage generateIconImageForIdentifier(VNTIconsContainerViewController self, NSString identifier) {
    return self.generateIconImageForIcon(
        SBIconController::shared().model().expectedIcon(identifier));
}

// A copy, so that what SpringBoard does with its own picture later does not show. Where pictures
// cannot be copied, the picture itself.
UIImage generateIconImageForIcon(VNTIconsContainerViewController, SBIcon icon) {
    UIImage image = renderedIcon(icon);
    if (!image.respondsTo(selector<"copyWithZone:">())) return image;
    return Copied<UIImage>(image).autoreleased();
}

}  // namespace vantori
