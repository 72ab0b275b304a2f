#include "hooks/gesture_zones.hpp"

#include <algorithm>

#include "settings/notifications.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

CGSize screenSizeNow() { return UIScreen::mainScreen().bounds().size; }

bool isApplicationInFront() { return bool(SpringBoard::shared().frontMostApplication()); }

bool refuse() {
    post(local::stopMarquee());
    return false;
}

bool accept() {
    post(local::zoneAccepted());
    post(local::startMarquee());
    return true;
}

void prepareToolbar() {
    VNTSBToolBarController::shared().ccTogglesViewController().setupButtons();
    VNTToolBarController::shared().ccTogglesViewControllerForApp().setupButtons();
    VNTSBToolBarController::shared().makeKeyWindow();
    post(local::shouldRefreshState());
    post(local::shouldRefreshValue());
}

bool hitsEnabledZone(double position, double leftEnd, double rightStart) {
    return (leftGestureEnabled && position <= leftEnd) ||
           (middleGestureEnabled && leftEnd < position && position < rightStart) ||
           (rightGestureEnabled && position >= rightStart);
}

// Turned, the zones are thirds of the long side, in whatever order the screen reports its sides.
bool hitsForFrontOrientation(double position) {
    if (SpringBoard::shared().frontMostAppOrientation() == orientationPortrait) {
        return hitsEnabledZone(position, leftZoneEnd, rightZoneStart);
    }
    const CGSize screen = screenSizeNow();
    const double side = std::max(screen.width, screen.height);
    return hitsEnabledZone(position, side / 3, 2 * side / 3);
}

}  // namespace

void updateZoneBorders() {
    const double width = screenSizeNow().width;
    leftZoneEnd = (width - middleZoneWidth) * 0.5;
    rightZoneStart = middleZoneWidth + (width - middleZoneWidth) * 0.5;
}

bool isPointInRangeX(double position) {
    prepareToolbar();
    const bool applicationInFront = isApplicationInFront();
    // On the home screen only portrait pulls open the toolbar.
    const long orientation = applicationInFront ? long{orientationPortrait}
                                                : SpringBoard::shared().frontMostAppOrientation();
    if (orientation != orientationPortrait) return refuse();
    if (applicationInFront && VNTToolBarController::shared().isEnabled()) return refuse();
    updateZoneBorders();
    return hitsForFrontOrientation(position) ? accept() : refuse();
}

bool isPointInRange(double position) {
    post(local::shouldRefreshState());
    if (SpringBoard::shared().frontMostAppOrientation() != orientationPortrait) return false;
    if (VNTToolBarController::shared().isEnabled() || !isApplicationInFront()) return false;
    updateZoneBorders();
    // The left zone is measured by the width of the middle one. Deliberate.
    return (leftGestureEnabled && position <= middleZoneWidth) ||
           (middleGestureEnabled && leftZoneEnd < position && position < rightZoneStart) ||
           (rightGestureEnabled && position >= rightZoneStart);
}

bool shouldBeginGesture(System<bool(CGPoint, CGPoint, CGRect)>, Object, CGPoint, CGPoint, CGRect) {
    return true;
}

bool allowHorizontalSwipes(System<bool()>, Object) { return true; }

}  // namespace vantori
