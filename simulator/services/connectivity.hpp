// The connectivity module of Control Center: five round buttons with a controller each. Their
// classes come with /System/Library/ControlCenter/Bundles/ConnectivityModule.bundle.
#pragma once

namespace simulator {

// Announces the classes; they exist once their bundle is loaded.
void announceConnectivity();

}  // namespace simulator
