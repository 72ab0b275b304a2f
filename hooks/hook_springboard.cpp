#include "hooks/hook_springboard.hpp"

#include "hooks/gesture_zones.hpp"
#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

void deviceSetOrientation(System<void(long, bool)> system, Object, long orientation,
                          bool animated) {
    if (VNTSBToolBarController::exists() && VNTSBToolBarController::shared().isEnabled()) return;
    system(orientation, animated);
    post(local::didRotate());
}

void postOrientationChanged(System<void(bool)> system, Object, bool animated) {
    system(animated);
    post(local::didRotate());
}

void didFinishLaunching(System<void(Object)> system, Object self, Object application) {
    system(application);
    VNTToolBarController toolbar = VNTToolBarController::shared();
    VNTSBToolBarController springBoardToolbar = VNTSBToolBarController::shared();
    as<SpringBoard>(self).addActiveOrientationObserver(springBoardToolbar);

    const CGSize screen = UIScreen::mainScreen().bounds().size;
    middleZoneWidth = screen.width / 3;
    updateZoneBorders();
    MAX_SIZE = toolbar.maxHeight();
    toolbar.view().setFrame(rect(0, screen.height - MAX_SIZE, screen.width, MAX_SIZE));

    CORNER_RADIUS = modelCornerRadius();
    if (noCornerRadius) {
        CORNER_RADIUS = 0;
        springBoardToolbar.view().layer().setCornerRadius(0);
    }
    springBoardToolbar.dismiss();
}

void lockUI(System<void(int, Object)> system, Object, int source, Object options) {
    system(source, options);
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    if (toolbar.isEnabled()) toolbar.dismiss();
}

}  // namespace vantori
