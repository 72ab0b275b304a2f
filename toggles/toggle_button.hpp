// The round button of a toggle, and the plain view that holds it.
#pragma once

#include "toggles/toggle.hpp"

namespace vantori {

void registerToggleButton();

}  // namespace vantori
