// The settings file that the settings pane writes from another process. A key's value always comes
// from the file as it stands at that moment: one fresh read tells whether it is there, a second
// fetches it. A missing or unreadable file reads as an empty one.
#pragma once

#include "platform/core_foundation.hpp"

namespace vantori {

using namespace platform;

inline NSString settingsPath() {
    return "/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist"_ns;
}
inline NSString settingsDomain() { return "com.ferolin.vantoripb"_ns; }

// The arrangement that the key "layoutDirection" chooses; any other number lays pages side by side.
inline constexpr int directionStrip = 1;
inline constexpr int directionStacked = 3;

bool settingExists(NSString key);
bool boolSetting(NSString key, bool whenAbsent);
int intSetting(NSString key, int whenAbsent);

// What the key "layoutDirection" holds now; stacked when it is absent.
int currentLayoutDirection();

// Through the preferences interface, which has a cache of its own; absent counts as false.
bool boolPreference(NSString key);

}  // namespace vantori
