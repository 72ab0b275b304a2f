// Every notification name, once. Darwin names cross processes (the settings pane posts some of
// them); local ones go through the process's own centre, with no object and no user info.
#pragma once

#include "platform/core_foundation.hpp"

namespace vantori {

using namespace platform;

namespace darwin {
inline NSString reloadSettings() { return "VantoriPB/reloadSettings"_ns; }
inline NSString refreshDailyToggles() { return "com.ferolin.vantori.refresh-all-daily-toggles"_ns; }
inline NSString refreshToggles() { return "com.ferolin.vantori.refresh-all-toggles"_ns; }
inline NSString backNow() { return "com.ferolin.vantori.Back-Now"_ns; }
}  // namespace darwin

namespace local {
inline NSString stopMarquee() { return "com.ferolin.vantori-stopmarquee"_ns; }
inline NSString startMarquee() { return "com.ferolin.vantori-startmarquee"_ns; }
// These two differ by one letter on purpose: the zone test posts the first, and nobody hears it.
inline NSString zoneAccepted() { return "com.ferlin.vantori-finish-launching"_ns; }
inline NSString finishLaunching() { return "com.ferolin.vantori-finish-launching"_ns; }
inline NSString controlCenterBack() { return "com.ferolin.vantori-ccback"_ns; }
inline NSString didRotate() { return "com.ferolin.vantori.did-rotated"_ns; }
inline NSString nowPlayingChange() { return "com.ferolin.vantori-nowplayingchange"_ns; }
inline NSString shouldRefreshState() { return "should-refresh-state"_ns; }
inline NSString shouldRefreshValue() { return "should-refresh-value"_ns; }
inline NSString shouldShowBrightnessSlider() { return "should-show-brightnessSlider"_ns; }
inline NSString shouldHideBrightnessSlider() { return "should-hide-brightnessSlider"_ns; }
inline NSString shouldShowVolumeSlider() { return "should-show-volumeSlider"_ns; }
inline NSString shouldHideVolumeSlider() { return "should-hide-volumeSlider"_ns; }
inline NSString volumeShouldRefreshValue() { return "com.ferolin.volume.should-refresh-value"_ns; }
inline NSString systemVolumeDidChange() {
    return "AVSystemController_SystemVolumeDidChangeNotification"_ns;
}
inline NSString screenBrightnessDidChange() { return "UIScreenBrightnessDidChangeNotification"_ns; }
inline NSString shouldLockScrollView() { return "should-lock-ScrollView"_ns; }
inline NSString shouldUnlockScrollView() { return "should-unlock-ScrollView"_ns; }
inline NSString deviceOrientationDidChange() {
    return "UIDeviceOrientationDidChangeNotification"_ns;
}
}  // namespace local

inline void post(NSString localName) { NSNotificationCenter::defaultCenter().post(localName); }
inline void observe(Object observer, SEL action, NSString localName) {
    NSNotificationCenter::defaultCenter().addObserver(observer, action, localName);
}

}  // namespace vantori
