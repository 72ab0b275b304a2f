// The connectivity module of Control Center: five round buttons with a controller each. SpringBoard
// loads the module with Control Center, so that its classes are there from the start.
#pragma once

namespace simulator {

void registerConnectivity();
// Control Center's modules are loaded as SpringBoard starts, with the classes that come with them.
void loadConnectivityModule();

}  // namespace simulator
