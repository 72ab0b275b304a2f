#include "pages/icon_row.hpp"

#include <algorithm>

#include "pages/app_button.hpp"
#include "pages/layout_items.hpp"
#include "platform/subviews.hpp"
#include "settings/device_profile.hpp"

namespace vantori {

namespace {

constexpr double rowTop = 20;      // points below the page's top
constexpr double trimming = 5;     // points by which an icon is smaller than its source
constexpr double widestIcon = 60;  // points
constexpr unsigned long mostDockIcons = 5;
constexpr unsigned long mostOthers = 4;

void addIcon(VNTIconsContainerViewController self, CGRect frame, UIImage image,
             NSString identifier) {
    auto icon = create<VNTAppButton, "initWithFrame:">(frame);
    icon.loadImageView(image);
    icon.appButton().addTarget(self, selector<"launchApplicationWithIdentifier:">(),
                               UIControl::touchUpInside | UIControl::touchUpOutside);
    icon.setApplicationIdentifier(identifier);
    self.view().addSubview(icon);
}

void showIcons(VNTIconsContainerViewController self, NSArray icons, unsigned long shown,
               double side) {
    UIView row = self.view();
    const double width = row.bounds().size.width;
    removeSubviews(row);
    for (unsigned long i = 0; i < shown; ++i) {
        SBIcon icon = icons.at<SBIcon>(i);
        addIcon(self, iconPlace(width, side, shown, i), self.generateIconImageForIcon(icon),
                icon.applicationBundleId());
    }
}

using ItemIdentifier = NSString (*)(SBDisplayItem item);

// Side and gap are worked out for each icon by itself, from its own image: images of different widths
// make an uneven row, and an icon without one has a negative side. Deliberate.
void showLayouts(VNTIconsContainerViewController self, NSArray layouts,
                 ItemIdentifier identifierOf) {
    UIView row = self.view();
    const double width = row.bounds().size.width;
    const unsigned long shown = std::min(layouts.count(), mostOthers);
    removeSubviews(row);
    for (unsigned long i = 0; i < shown; ++i) {
        NSString identifier = identifierOf(firstItemOf(layouts.at<SBAppLayout>(i)));
        UIImage image = self.generateIconImageForIdentifier(identifier);
        const double side = std::min(image.size().width, widestIcon) - trimming;
        addIcon(self, iconPlace(width, side, shown, i), image, identifier);
    }
}

NSString bundleIdentifierOf(SBDisplayItem item) { return item.bundleIdentifier(); }

NSString identifierOfEitherSystem(SBDisplayItem item) {
    return isSystem13OrLater() ? item.bundleIdentifier() : item.displayIdentifier();
}

}  // namespace

CGRect iconPlace(double width, double side, unsigned long count, unsigned long index) {
    const double n = static_cast<double>(count);
    const double i = static_cast<double>(index);
    const double gap = (width - side * n) / (n + 1);
    return rect(side * i + gap * (i + 1), rowTop, side, side);
}

void layoutIconsWithSize(VNTIconsContainerViewController self, double size) {
    NSArray icons = self.icons();
    if (!icons) return;
    showIcons(self, icons, std::min(icons.count(), mostDockIcons), size - trimming);
}

// The stored icons, not the ones passed in, decide whether anything happens. Deliberate, as is that
// these are four at most while the stored ones may be five.
void layoutIconsWithSizeAndIcons(VNTIconsContainerViewController self, double size, NSArray icons) {
    if (!self.icons()) return;
    Strong<NSMutableArray> shown = adopted(icons.send<"mutableCopy", NSMutableArray>());
    while (shown.count() > mostOthers) shown.send<"removeObjectAtIndex:">(mostOthers);
    showIcons(self, shown, shown.count(), size - trimming);
}

void layoutIconsWithAppLayouts(VNTIconsContainerViewController self, NSArray layouts) {
    showLayouts(self, layouts, &bundleIdentifierOf);
}

void layoutIconsWithMutableAppLayouts(VNTIconsContainerViewController self, NSArray layouts) {
    showLayouts(self, layouts, &identifierOfEitherSystem);
}

}  // namespace vantori
