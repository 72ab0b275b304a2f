#include "simulator/hardware/uikit_bridge.hpp"

#include "simulator/hardware/configuration.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/feedback/feedback.hpp"
#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/touch/touch.hpp"
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

// At half the brightness and above the picture is as it was drawn; down to none it loses two thirds
// of its light.
rendering::Node dimmed(rendering::Node picture) {
    constexpr double full = 0.5, deepest = 0.66;
    const double level = screen().brightness;
    if (level >= full) return picture;
    rendering::Node dark = rendering::nodeWithFrame("Backlight", picture.bounds);
    dark.background = rendering::Colour{0, 0, 0, deepest * (full - level) / full};
    picture.children.push_back(std::move(dark));
    return picture;
}

}  // namespace

void fingerDown(CGPoint display) { TouchScreen::shared().down(display); }
void fingerMoved(CGPoint display) { TouchScreen::shared().move(display); }
void fingerUp(CGPoint) { TouchScreen::shared().up(); }
void fingerCancelled() { TouchScreen::shared().cancel(); }

UIImage imageOfPicture(const rendering::PictureRef& picture) { return makeImage(picture); }

rendering::Node screenScene() { return dimmed(sceneOfWindows(configuration().screen)); }

long hapticsGiven(int style) { return hapticCount(style); }
void clearHaptics() { clearHapticCounts(); }

bool anythingMoves() {
    for (const auto& window : windowsBackToFront()) {
        if (moves(window)) return true;
    }
    return false;
}

}  // namespace simulator
