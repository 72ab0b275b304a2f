#include "hooks/control_center.hpp"

#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"
#include "settings/variables.hpp"
#include "toolbar/rubber_band.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

// Upward flicks faster than this close; points per second.
constexpr double closingVelocity = -15.0;

// Without "replaceCC", a phone without a home button keeps the system's gestures.
bool leavesToSystem() { return !replaceCC && hasNoHomeButton(); }

double pulledDistance(UIPanGestureRecognizer pan, UIView container) {
    const CGPoint location = pan.locationInView(container);
    switch (SpringBoard::shared().frontMostAppOrientation()) {
        case orientationPortrait:
            return location.y;
        case orientationLandscapeRight:
            return UIScreen::mainScreen().bounds().size.height - location.x;
        default:
            return location.x;
    }
}

void releaseStatusBarPull(VNTSBToolBarController toolbar, double velocity, double distance) {
    const double screenHeight = UIScreen::mainScreen().bounds().size.height;
    const double height = toolbar.suggestedY();
    const bool opens = velocity > closingVelocity && distance > 0.5 * height;
    toolbar.updateYValueWithAnimation(opens ? screenHeight - height : screenHeight);
    toolbar.setIsEnabled(opens);
}

// The zone test makes a bottom-edge pull ready; here the first pull of all would find no window to be
// seen in, a heap of buttons and full sliders.
void prepareForPull(VNTSBToolBarController toolbar) {
    toolbar.makeKeyWindow();
    toolbar.layoutConnectivityButton();
    showLevels(toolbar);
}

void followStatusBarPull(UIPanGestureRecognizer pan) {
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    UIView container = pan.view().superview();
    (void)pan.send<"translationInView:", CGPoint>(container);  // deliberate, though not used
    const double distance = pulledDistance(pan, container);
    const double y =
        UIScreen::mainScreen().bounds().size.height - rubberBand(distance, toolbar.suggestedY());
    switch (pan.state()) {
        case UIGestureRecognizer::began:
            prepareForPull(toolbar);
            toolbar.updateYValueWithAnimation(y);
            pan.setTranslation({0, 0}, container);
            break;
        case UIGestureRecognizer::changed:
            toolbar.updateYValue(y);
            pan.setTranslation({0, 0}, container);
            break;
        case UIGestureRecognizer::ended:
        case UIGestureRecognizer::cancelled:
            releaseStatusBarPull(toolbar, pan.velocityInView(container).y, distance);
            break;
        default:
            break;
    }
}

PullSource sourceOf(Object self) {
    const CGPoint location = self.send<"_presentGestureLocationInView", CGPoint>();
    return {.edgePosition = edgePosition(location), .everywhere = replaceCC, .haptic = false};
}

}  // namespace

void statusBarPulledDown(System<void(Object)> system, Object, Object recognizer) {
    if (!replaceCC) {
        shouldHideCCScrollView = false;
        post(local::controlCenterBack());
        system(recognizer);
        return;
    }
    shouldHideCCScrollView = true;
    followStatusBarPull(as<UIPanGestureRecognizer>(recognizer));
}

void controlCenterPullBegan(const TongueReport& system, Object self, Object tongue, double distance,
                            double velocity) {
    VNTSBToolBarController::shared().makeKeyWindow();
    clearPull();
    if (leavesToSystem()) {
        letSystemPull(system, tongue, distance, velocity);
        return;
    }
    if (replaceCC) {  // no zone test will have the sliders refreshed
        showLevels(VNTSBToolBarController::shared());
        showLevels(VNTToolBarController::shared());
    }
    beginPull(system, sourceOf(self), tongue, distance, velocity);
}

void controlCenterPullUpdated(const TongueReport& system, Object self, Object tongue,
                              double distance, double velocity) {
    // Location and orientation are asked for at each report, though only the first needs them.
    // Deliberate.
    (void)sourceOf(self);
    updatePull(system, tongue, distance, velocity);
}

void controlCenterPullEnded(const TongueReport& system, Object, Object tongue, double distance,
                            double velocity) {
    if (leavesToSystem()) clearPull();
    endPull(system, tongue, distance, velocity);
}

void controlCenterPullCancelled(const TongueReport& system, Object, Object tongue, double distance,
                                double velocity) {
    if (leavesToSystem()) clearPull();
    cancelPull(system, tongue, distance, velocity);
}

}  // namespace vantori
