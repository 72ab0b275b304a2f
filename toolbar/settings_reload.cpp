#include "toolbar/settings_reload.hpp"

#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"
#include "settings/settings_file.hpp"
#include "settings/variables.hpp"
#include "toolbar/arrangement.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

void reloadSettingsCallback(CFNotificationCenterRef, void*, CFStringRef, const void*,
                            CFDictionaryRef) {
    reloadSettings();
}

// Registered beside reloadSettings, and does nothing: the zones do not depend on a location.
void reloadGestureSettings(CFNotificationCenterRef, void*, CFStringRef, const void*,
                           CFDictionaryRef) {}

void placeApplicationToolbar(VNTToolBarController toolbar) {
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    MAX_SIZE = toolbar.maxHeight();
    toolbar.view().setFrame(rect(0, screen.height - MAX_SIZE, screen.width, MAX_SIZE));
}

void refreshToolbars(VNTToolBarController toolbar, VNTSBToolBarController springBoardToolbar) {
    const PageInFront front = pageInFront(toolbar);
    const PageInFront springBoardFront = pageInFront(springBoardToolbar);
    toolbar.refreshLayoutForDirection(layoutDirection);
    springBoardToolbar.refreshLayoutForDirection(layoutDirection);
    toolbar.refreshAllPages();
    springBoardToolbar.refreshAllPages();
    keepPageInFront(toolbar, front);
    keepPageInFront(springBoardToolbar, springBoardFront);
    placeApplicationToolbar(toolbar);

    toolbar.page<VNTMediaPlayerViewController>().setAllowOpenNowPlayingApp(tapToOpen);
    springBoardToolbar.page<VNTMediaPlayerViewController>().setAllowOpenNowPlayingApp(tapToOpen);
    springBoardToolbar.view().layer().setCornerRadius(noCornerRadius ? 0 : 30);
}

// Tells whether the file came with another arrangement, of which nobody else may tell: then the
// content in which the pages now stand is made to fit them. The grid of a phone on its side stays
// until the phone is turned.
bool reloadPages(VNTToolBarController toolbar) {
    const PageInFront front = pageInFront(toolbar);
    const double height = front.content.height;
    toolbar.refreshAllPages();
    const bool isRearranged = height != toolbar.maxHeight() && height != gridHeight;
    if (isRearranged) toolbar.refreshLayoutForDirection(currentLayoutDirection());
    keepPageInFront(toolbar, front);
    return isRearranged;
}

}  // namespace

void reloadSettings() {
    enabled = enabledAtLaunch;
    synchronizePreferences(settingsDomain());
    // Read and thrown away: nothing depends on it any more.
    (void)preferenceValue("gestureLocation"_ns, settingsDomain());
    layoutDirection = currentLayoutDirection();
    noCornerRadius = boolPreference("noCornerRadius"_ns);
    tapToOpen = boolSetting("tapToOpen"_ns, true);
    leftGestureEnabled = boolSetting("leftGestureEnabled"_ns, true);
    rightGestureEnabled = boolSetting("rightGestureEnabled"_ns, false);
    middleGestureEnabled = boolSetting("middleGestureEnabled"_ns, false);
    settingsChanged();
}

void settingsChanged() {
    if (VNTToolBarController::exists() && VNTSBToolBarController::exists()) {
        refreshToolbars(VNTToolBarController::shared(), VNTSBToolBarController::shared());
        settingsLoaded = true;
        alwaysSpringBoardStyle = boolSetting("alwaysSpringBoardStyle"_ns, true);
    }
    // Switched on at run time, "noCornerRadius" keeps the radius until SpringBoard starts again.
    if (!noCornerRadius) CORNER_RADIUS = modelCornerRadius();
}

// Through the preferences, whose cache has just been renewed; a toolbar that is being made asks the
// settings file. Deliberate.
void reloadControllerSettings(CFNotificationCenterRef, void*, CFStringRef, const void*,
                              CFDictionaryRef) {
    synchronizePreferences(settingsDomain());
    const double alpha = grabberAlpha(boolPreference("hideGrabber"_ns));
    VNTSBToolBarController::shared().grabberView().setAlpha(alpha);
    VNTToolBarController::shared().grabberView().setAlpha(alpha);
}

void reloadPagesSettings(CFNotificationCenterRef, void*, CFStringRef, const void*,
                         CFDictionaryRef) {
    reloadPages(VNTSBToolBarController::shared());
    VNTToolBarController toolbar = VNTToolBarController::shared();
    if (reloadPages(toolbar)) placeApplicationToolbar(toolbar);
}

void reloadTogglesSettings(CFNotificationCenterRef, void*, CFStringRef, const void*,
                           CFDictionaryRef) {
    VNTSBToolBarController::shared().page<VNTConnectivityBarViewController>().refreshAllToggles();
    VNTToolBarController::shared().page<VNTConnectivityBarViewController>().refreshAllToggles();
}

void observeSettings() {
    observeDarwin(darwin::reloadSettings(), &reloadSettingsCallback);
    observeDarwin(darwin::reloadSettings(), &reloadGestureSettings);
    observeDarwin(darwin::refreshDailyToggles(), &reloadSettingsCallback);
}

}  // namespace vantori
