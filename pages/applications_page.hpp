// The page of dock or recent applications: one row of icons, each of which opens its application.
// The hooks on the dock and on the recent applications hand it what to show. It lays itself out in
// a view of one screen width by 100 points, which the toolbar places and shows or hides by alpha.
#pragma once

#include "platform/springboard_icons.hpp"

namespace vantori {

using namespace platform;

struct VNTIconsContainerViewController : UIViewController {
    static constexpr FixedString name{"VNTIconsContainerViewController"};
    using UIViewController::UIViewController;

    // The dock's icons; empty until they were handed over once.
    NSMutableArray icons() const { return send<"icons", NSMutableArray>(); }
    void setIcons(NSMutableArray icons) const { send<"setIcons:">(icons); }

    // Builds the row anew. The side of a square icon comes from size (points, of the list that the
    // icons are from); at most five of the stored icons, four of anything else.
    void layoutIconsWithSize(double size) const { send<"layoutIconsWithSize:">(size); }
    void layoutIconsWithAppLayouts(NSArray layouts) const {
        send<"layoutIconsWithAppLayouts:">(layouts);
    }
    void layoutIconsWithMutableAppLayouts(NSArray layouts) const {
        send<"layoutIconsWithMutableAppLayouts:">(layouts);
    }

    UIImage generateIconImageForIdentifier(NSString identifier) const {
        return send<"generateIconImageForIdentifier:", UIImage>(identifier);
    }
    UIImage generateIconImageForIcon(SBIcon icon) const {
        return send<"generateIconImageForIcon:", UIImage>(icon);
    }
};

void registerApplicationsPage();

}  // namespace vantori
