#include "simulator/springboard/uikit_bridge.hpp"

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

bool moves(UIView view) {
    if (isAnimating(layerOf(view))) return true;
    for (const auto& subview : viewState(view).subviews) {
        if (moves(subview)) return true;
    }
    return false;
}

}  // namespace

void fingerDown(CGPoint) {}
void fingerMoved(CGPoint) {}
void fingerUp(CGPoint) {}
void fingerCancelled() {}

UIImage imageOfPicture(const rendering::PictureRef&) { return {}; }

rendering::Node screenScene() { return {}; }

long hapticsGiven(int) { return 0; }
void clearHaptics() {}

bool anythingMoves() {
    for (const auto& window : windowsBackToFront()) {
        if (moves(window)) return true;
    }
    return false;
}

}  // namespace simulator
