// Reading the settings again, at start-up and whenever the settings pane says that they changed.
#pragma once

#include "core/settings_callbacks.hpp"

namespace vantori {

void reloadSettings();
void settingsChanged();

// Registers the observers of the settings pane's notifications.
void observeSettings();

}  // namespace vantori
