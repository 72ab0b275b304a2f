// GNUstep keeps a few objects for ever when a property list is written for the first time. The leak
// detector cannot tell them from ours, so the first use happens out of its sight.
#pragma once

namespace simulator {

// Does nothing in a build without the address sanitizer.
void makeFirstUses();

}  // namespace simulator
