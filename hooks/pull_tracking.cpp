#include "hooks/pull_tracking.hpp"

#include <algorithm>

#include "hooks/gesture_zones.hpp"
#include "pages/lifted_scene.hpp"
#include "settings/notifications.hpp"
#include "settings/variables.hpp"
#include "toolbar/rubber_band.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

// A release faster than this back toward the edge closes; any other opens. Points per second.
constexpr double closingVelocity = -5.0;

CGSize screenSizeNow() { return UIScreen::mainScreen().bounds().size; }

// The toolbar behind the application, by a pull: its flag is cleared before and after the spring. The
// dismiss gesture (toolbar_controller.cpp) and the launches (application_launch.cpp, music_transport.cpp)
// close it in sequences of their own. Deliberate.
void closeApplicationToolbar() {
    VNTToolBarController toolbar = VNTToolBarController::shared();
    toolbar.setIsEnabled(false);
    springScene(0, 0);
    liftingAppScene = false;
    toolbar.setIsEnabled(false);
    post(local::stopMarquee());
    postDarwin(darwin::backNow());
}

void tapMedium() {
    auto generator =
        create<UIImpactFeedbackGenerator, "initWithStyle:">(UIImpactFeedbackGenerator::medium);
    generator.impactOccurred();
}

// What the row of applications shows is refreshed by asking the dock or the recents.
void refreshApplications() {
    if (settingsLoaded) {
        dockIconListView.send<"visibleIcons", Object>();
    } else if (SpringBoard::shared().frontMostApplication()) {
        recentAppLayouts.send<"_saveRecents">();
    }
}

void prepareForHit(const PullSource& source) {
    VNTSBToolBarController springBoardToolbar = VNTSBToolBarController::shared();
    const CGSize screen = screenSizeNow();
    shouldHideCCScrollView = true;
    MAX_SIZE = springBoardToolbar.maxHeight();
    VNTToolBarController::shared().view().setFrame(
        rect(0, screen.height - MAX_SIZE, screen.width, MAX_SIZE));
    springBoardToolbar.layoutConnectivityButton();
    if (source.haptic) tapMedium();
}

void beginApplicationStyle(double distance) {
    VNTToolBarController::shared().layoutConnectivityButton();
    VNTSBToolBarController::shared().layoutConnectivityButton();
    sceneContainer().layer().setMasksToBounds(true);
    liftingAppScene = true;
    springScene(distance, CORNER_RADIUS);
}

void beginSpringBoardStyle(double distance) {
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    toolbar.layoutConnectivityButton();
    refreshApplications();
    pullingSBToolbar = true;
    liftingAppScene = false;
    toolbar.updateYValueWithAnimation(screenSizeNow().height - distance);
}

void trackScene(double distance) {
    const double radius =
        std::min(MAX_SIZE > 0 ? distance / MAX_SIZE * CORNER_RADIUS : 0.0, CORNER_RADIUS);
    placeScene(sceneContainer(), distance, radius);
    liftingAppScene = true;
    pullingSBToolbar = false;
}

void trackToolbar(double distance) {
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    toolbar.layoutConnectivityButton();
    refreshApplications();
    toolbar.updateYValue(screenSizeNow().height - distance);
    pullingSBToolbar = true;
    liftingAppScene = false;
}

void releaseScene(bool closes) {
    if (closes) {
        closeApplicationToolbar();
    } else if (!alwaysSpringBoardStyle) {
        VNTToolBarController::shared().setIsEnabled(true);
        springScene(MAX_SIZE, CORNER_RADIUS);
    }
}

void releaseToolbar(bool closes) {
    VNTSBToolBarController toolbar = VNTSBToolBarController::shared();
    if (closes) {
        toolbar.dismiss();
        return;
    }
    toolbar.updateYValueWithAnimation(screenSizeNow().height - MAX_SIZE);
    toolbar.setIsEnabled(true);
}

}  // namespace

double edgePosition(CGPoint location) {
    switch (SpringBoard::shared().frontMostAppOrientation()) {
        case orientationPortrait:
            return location.x;
        case orientationLandscapeRight:
            return location.y;
        default:
            return screenSizeNow().width - location.y;
    }
}

void clearPull() {
    liftingAppScene = false;
    pullingSBToolbar = false;
}

void letSystemPull(const TongueReport& system, Object tongue, double distance, double velocity) {
    clearPull();
    shouldHideCCScrollView = false;
    post(local::controlCenterBack());
    system(tongue, distance, velocity);
}

// Whether a toolbar is open is asked twice: closed above, neither can be open after the hit is prepared,
// and yet each is asked again. Deliberate: the questions are part of the sequence of messages.
void beginPull(const TongueReport& system, const PullSource& source, Object tongue, double distance,
               double velocity) {
    VNTToolBarController applicationToolbar = VNTToolBarController::shared();
    VNTSBToolBarController springBoardToolbar = VNTSBToolBarController::shared();
    // A pull that begins while a toolbar is open closes it.
    if (applicationToolbar.isEnabled()) {
        closeApplicationToolbar();
        return;
    }
    if (springBoardToolbar.isEnabled()) {
        springBoardToolbar.dismiss();
        return;
    }
    springBoardToolbar.layoutConnectivityButton();
    if (!source.everywhere && !isPointInRangeX(source.edgePosition)) {
        letSystemPull(system, tongue, distance, velocity);
        return;
    }
    prepareForHit(source);

    SpringBoard springBoard = SpringBoard::shared();
    if (!springBoard.frontMostApplication()) {
        if (springBoardToolbar.isEnabled()) {
            springBoardToolbar.dismiss();
        } else {
            beginSpringBoardStyle(distance);
        }
        return;
    }
    if (applicationToolbar.isEnabled()) {
        closeApplicationToolbar();
        system(tongue, distance, velocity);
        return;
    }
    if (!alwaysSpringBoardStyle && springBoard.frontMostAppOrientation() == orientationPortrait) {
        beginApplicationStyle(distance);
    } else {
        beginSpringBoardStyle(distance);
    }
}

void updatePull(const TongueReport& system, Object tongue, double distance, double velocity) {
    if (!liftingAppScene && !pullingSBToolbar) {
        clearPull();
        system(tongue, distance, velocity);
        return;
    }
    const double followed = rubberBand(distance, MAX_SIZE);
    if (liftingAppScene) {
        trackScene(followed);
    } else {
        trackToolbar(followed);
    }
}

void endPull(const TongueReport& system, Object tongue, double distance, double velocity) {
    if (!liftingAppScene && !pullingSBToolbar) {
        system(tongue, distance, velocity);
        return;
    }
    const bool closes = velocity < closingVelocity;
    if (liftingAppScene) {
        releaseScene(closes);
    } else {
        releaseToolbar(closes);
    }
    post(local::finishLaunching());
    clearPull();
}

void cancelPull(const TongueReport& system, Object tongue, double distance, double velocity) {
    system(tongue, distance, velocity);
    if (!liftingAppScene && !pullingSBToolbar) {
        clearPull();
        return;
    }
    VNTSBToolBarController::shared().setIsEnabled(false);
    closeApplicationToolbar();
    clearPull();
}

void pullBegan(const TongueReport& system, Object self, Object tongue, double distance,
               double velocity) {
    clearPull();
    SBGrabberTongue deck = as<SBFluidSwitcherGestureManager>(self).deckGrabberTongue();
    const CGPoint location =
        deck.edgePullGestureRecognizer().locationInView(deck.tongueContainer());
    const PullSource source{
        .edgePosition = edgePosition(location), .everywhere = false, .haptic = true};
    beginPull(system, source, tongue, distance, velocity);
}

void pullUpdated(const TongueReport& system, Object, Object tongue, double distance,
                 double velocity) {
    updatePull(system, tongue, distance, velocity);
}

void pullEnded(const TongueReport& system, Object, Object tongue, double distance,
               double velocity) {
    endPull(system, tongue, distance, velocity);
}

void pullCancelled(const TongueReport& system, Object, Object tongue, double distance,
                   double velocity) {
    cancelPull(system, tongue, distance, velocity);
}

}  // namespace vantori
