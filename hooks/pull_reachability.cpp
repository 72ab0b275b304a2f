#include "hooks/pull_reachability.hpp"

#include "pages/lifted_scene.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

// Before the first pull there is no window to be seen in, the buttons of the toolbar behind
// applications are a heap, and nothing has refreshed the sliders.
void openToolbar() {
    VNTSBToolBarController springBoardToolbar = VNTSBToolBarController::shared();
    springBoardToolbar.layoutConnectivityButton();
    if (alwaysSpringBoardStyle) {
        springBoardToolbar.makeKeyWindow();
        showLevels(springBoardToolbar);
        const double height = UIScreen::mainScreen().bounds().size.height;
        springBoardToolbar.updateYValueWithAnimation(height - MAX_SIZE);
        springBoardToolbar.setIsEnabled(true);
    } else {
        VNTToolBarController toolbar = VNTToolBarController::shared();
        toolbar.layoutConnectivityButton();
        showLevels(toolbar);
        toolbar.setIsEnabled(true);
        springScene(MAX_SIZE, CORNER_RADIUS);
    }
}

bool canToggle() { return VNTToolBarController::shared().canToggleReachability(); }

template <class... A>
void openOrLetSystem(const System<void(A...)>& system, A... arguments) {
    if (reachability) {
        openToolbar();
    } else if (canToggle()) {
        system(arguments...);
    }
}

}  // namespace

bool shouldBeginReachabilityGesture(System<bool(Object)> system, Object, Object gesture) {
    const bool begins = system(gesture);
    if (!reachability) return begins;
    if (begins) openToolbar();
    return false;
}

bool reachabilityEnabled(System<bool()> system, Object) { return canToggle() && system(); }

void toggleReachability(System<void()> system, Object) { openOrLetSystem(system); }

void toggleReachabilityFor(System<void(Object)> system, Object, Object observer) {
    openOrLetSystem(system, observer);
}

void handleReachabilityPan(System<void(Object)> system, Object, Object gesture) {
    openOrLetSystem(system, gesture);
}

void reachabilitySwiped(System<void(Object)> system, Object, Object gesture) {
    const bool done = as<UIGestureRecognizer>(gesture).state() == UIGestureRecognizer::ended;
    if (reachability && !done) return;
    openOrLetSystem(system, gesture);
}

}  // namespace vantori
