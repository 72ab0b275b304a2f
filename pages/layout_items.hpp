// What a layout of the application switcher shows.
#pragma once

#include "platform/springboard_icons.hpp"

namespace vantori {

using namespace platform;

// The first item of a layout; empty for one without items.
SBDisplayItem firstItemOf(SBAppLayout layout);

}  // namespace vantori
