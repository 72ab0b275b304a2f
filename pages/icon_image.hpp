// Pictures of icons, rendered by SpringBoard in the way of its system generation.
#pragma once

#include "pages/applications_page.hpp"

namespace vantori {

// A copy of what SpringBoard draws now, 60 by 60 points, so that what SpringBoard does with its own
// picture later does not show; the picture itself where pictures cannot be copied. Empty for no icon,
// or one without a picture.
UIImage renderedIcon(SBIcon icon);

// The page's operations of these names. Empty for what is not installed or has no picture.
UIImage generateIconImageForIdentifier(VNTIconsContainerViewController self, NSString identifier);
UIImage generateIconImageForIcon(VNTIconsContainerViewController self, SBIcon icon);

}  // namespace vantori
