// The light and the dark style of the interface, and the object through which SpringBoard's programs
// choose one. Numbers are UIKit's: 1 light, 2 dark.
#pragma once

namespace simulator {

// Every view learns of it, and SpringBoard's own windows are dressed anew.
void turnStyle(long style);

void registerInterfaceStyle();

}  // namespace simulator
