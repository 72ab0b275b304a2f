// The Settings application: a picture of the system's own rows, below which each package has one that opens
// its pane. The pane is made of the package's property list and works as on a phone: a change is written to
// the file, and the cell's notification is posted.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

inline constexpr const char* settingsApplication = "com.apple.Preferences";

// Fills the application's scene, or does so anew for another size or style; the pane that is open stays open.
void showSettings(UIView scene);

void registerSettingsApplication();

}  // namespace simulator
