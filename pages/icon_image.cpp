#include "pages/icon_image.hpp"

#include "core/device_profile.hpp"

namespace vantori {

namespace {

constexpr int wholeIconFormat = 999;  // SpringBoard's number up to system 12
constexpr double side = 60;           // points
constexpr double cornerRadius = 12;   // points

UIImage render(SBIcon icon) {
    if (!isSystem13OrLater()) return icon.generateIconImage(wholeIconFormat);
    const double scale = UIScreen::mainScreen().send<"scale", double>();
    return icon.generateIconImageWithInfo({{side, side}, scale, cornerRadius});
}

}  // namespace

UIImage generateIconImageForIdentifier(VNTIconsContainerViewController self, NSString identifier) {
    return self.generateIconImageForIcon(
        SBIconController::shared().model().expectedIcon(identifier));
}

// A copy, so that what SpringBoard does with its own picture later does not show. Where pictures
// cannot be copied, the picture itself.
UIImage generateIconImageForIcon(VNTIconsContainerViewController, SBIcon icon) {
    UIImage image = render(icon);
    if (!image.respondsTo(selector<"copyWithZone:">())) return image;
    return Copied<UIImage>(image).autoreleased();
}

}  // namespace vantori
