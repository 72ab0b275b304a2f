// Pictures of icons, rendered by SpringBoard in the way of its system generation.
#pragma once

#include "pages/applications_page.hpp"

namespace vantori {

// The page's operations of these names. Empty for what is not installed or has no picture.
UIImage generateIconImageForIdentifier(VNTIconsContainerViewController self, NSString identifier);
UIImage generateIconImageForIcon(VNTIconsContainerViewController self, SBIcon icon);

}  // namespace vantori
