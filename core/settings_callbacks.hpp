// The Darwin callbacks of the settings pane, with the standard observer signature; their arguments
// are ignored. They arrive on the main run loop. Declared here because the toolbar and the everyday
// page register some of them.
#pragma once

#include "platform/core_foundation.hpp"

namespace vantori {

void reloadControllerSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                              const void* object, CFDictionaryRef userInfo);
void reloadPagesSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                         const void* object, CFDictionaryRef userInfo);
void reloadDailyTogglesSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                const void* object, CFDictionaryRef userInfo);
// Nothing registers this one: the connectivity page has no refresh notification of its own.
void reloadTogglesSettings(CFNotificationCenterRef center, void* observer, CFStringRef name,
                           const void* object, CFDictionaryRef userInfo);

}  // namespace vantori
