#include "hooks/pull_reachability.hpp"

#include "pages/lifted_scene.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

void openToolbar() {
    VNTSBToolBarController springBoardToolbar = VNTSBToolBarController::shared();
    springBoardToolbar.layoutConnectivityButton();
    if (alwaysSpringBoardStyle) {
        const double height = UIScreen::mainScreen().bounds().size.height;
        springBoardToolbar.updateYValueWithAnimation(height - MAX_SIZE);
        springBoardToolbar.setIsEnabled(true);
    } else {
        VNTToolBarController::shared().setIsEnabled(true);
        springScene(MAX_SIZE, CORNER_RADIUS);
    }
}

bool canToggle() { return VNTToolBarController::shared().canToggleReachability(); }

}  // namespace

bool shouldBeginReachabilityGesture(System<bool(Object)> system, Object, Object gesture) {
    const bool begins = system(gesture);
    if (!reachability) return begins;
    if (begins) openToolbar();
    return false;
}

bool reachabilityEnabled(System<bool()> system, Object) { return canToggle() && system(); }

void toggleReachability(System<void()> system, Object) {
    if (reachability) {
        openToolbar();
    } else if (canToggle()) {
        system();
    }
}

void handleReachabilityPan(System<void(Object)> system, Object, Object gesture) {
    if (reachability) {
        openToolbar();
    } else if (canToggle()) {
        system(gesture);
    }
}

}  // namespace vantori
