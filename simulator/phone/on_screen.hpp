// Where views are on the screen, in points of the interface's orientation, and whether an eye or a
// finger gets to them.
#pragma once

#include <optional>
#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

// The upright box of the view; nothing for a view in no window.
std::optional<CGRect> frameOnScreen(UIView view);

// Why the view cannot be seen: hidden, transparent, off the screen. What covers it is not looked at.
std::optional<std::string> notVisible(UIView view);

// Why no label shows exactly this text; nothing when one does.
std::optional<std::string> textNotShown(const std::string& wanted);

// The middle of the view. Throws PhoneError where no finger would reach it.
CGPoint middleWithinReach(Object view);

// One view a line, indented; all windows for an empty one.
std::string treeOnScreen(UIView root);

}  // namespace simulator
