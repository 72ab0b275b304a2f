// The row of icons on the applications page: where it comes from (the dock's icons, or the layouts of
// recent applications), how many it shows, and where they stand.
#pragma once

#include "pages/applications_page.hpp"

namespace vantori {

// The place of one icon: the icons and equal gaps between and beside them fill the width. Points.
CGRect iconPlace(double width, double side, unsigned long count, unsigned long index);

// The page's operations of these names.
void layoutIconsWithSize(VNTIconsContainerViewController self, double size);
void layoutIconsWithSizeAndIcons(VNTIconsContainerViewController self, double size, NSArray icons);
void layoutIconsWithAppLayouts(VNTIconsContainerViewController self, NSArray layouts);
void layoutIconsWithMutableAppLayouts(VNTIconsContainerViewController self, NSArray layouts);

}  // namespace vantori
