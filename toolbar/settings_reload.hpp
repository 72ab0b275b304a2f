// Reading the settings again, at start-up and whenever the settings pane says that they changed.
#pragma once

#include "platform/core_foundation.hpp"

namespace vantori {

void reloadSettings();
void settingsChanged();

// Registers the observers of the settings pane's notifications.
void observeSettings();

// The Darwin callbacks that the toolbar registers, with the standard observer signature; their
// arguments are ignored. They arrive on the main run loop.
void reloadControllerSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                              const void* object, CFDictionaryRef userInfo);
void reloadPagesSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                         const void* object, CFDictionaryRef userInfo);
// Nothing registers this one: the connectivity page has no refresh notification of its own.
void reloadTogglesSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                           const void* object, CFDictionaryRef userInfo);

}  // namespace vantori
