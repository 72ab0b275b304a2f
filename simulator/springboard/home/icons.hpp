// Icons: the model of what stands on the home screen, the pictures of it, and the views that show
// them and open an application when they are tapped.
#pragma once

#include <string>

#include "platform/springboard_icons.hpp"
#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

// In the journal the record's four numbers stand in their order, as those of a rectangle do.
inline CGRect journaled(const SBIconImageInfo& info) {
    return {{info.size.width, info.size.height}, {info.scale, info.continuousCornerRadius}};
}

namespace simulator {

VANTORI_CLASS(SBIconView, UIView);
VANTORI_CLASS(SBLeafIcon, SBIcon);
VANTORI_CLASS(SBApplicationIcon, SBLeafIcon);

inline constexpr double iconLength = 60;  // points, of the square

// Empty for an application that is not installed.
SBApplicationIcon iconOf(const std::string& identifier);
std::string identifierOf(SBIcon icon);
Strong<SBIconView> makeIconView(SBIcon icon, bool labelled);
SBIcon iconOfView(SBIconView view);

void registerIcons();

}  // namespace simulator
