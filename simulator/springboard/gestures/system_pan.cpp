#include "simulator/springboard/gestures/system_pan.hpp"

#include "simulator/uikit/touch/touch.hpp"

namespace simulator {

namespace {

struct PanState {
    Finger finger;
    CGPoint origin;  // where the translation counts from
    UIView view;     // not owned
};

PanState& stateOfPan(SBSystemPanGestureRecognizer self) { return stateOf<PanState>(self); }

long state(SBSystemPanGestureRecognizer self) { return stateOfPan(self).finger.state; }

UIView view(SBSystemPanGestureRecognizer self) { return stateOfPan(self).view; }

CGPoint locationInView(SBSystemPanGestureRecognizer self, UIView asked) {
    return fromScreen(stateOfPan(self).finger.location, asked);
}

CGPoint velocityInView(SBSystemPanGestureRecognizer self, UIView asked) {
    return vectorFromScreen(stateOfPan(self).finger.velocity, asked);
}

CGPoint translationInView(SBSystemPanGestureRecognizer self, UIView asked) {
    const PanState& pan = stateOfPan(self);
    return vectorFromScreen(
        {pan.finger.location.x - pan.origin.x, pan.finger.location.y - pan.origin.y}, asked);
}

void setTranslation(SBSystemPanGestureRecognizer self, CGPoint translation, UIView asked) {
    PanState& pan = stateOfPan(self);
    const CGPoint by = vectorToScreen(translation, asked);
    pan.origin = {pan.finger.location.x - by.x, pan.finger.location.y - by.y};
}

}  // namespace

Strong<SBSystemPanGestureRecognizer> makeSystemPan(UIView pannedView) {
    auto pan = create<SBSystemPanGestureRecognizer>();
    if (pan) stateOfPan(pan).view = pannedView;
    return pan;
}

void drive(SBSystemPanGestureRecognizer recognizer, const Finger& finger) {
    PanState& pan = stateOfPan(recognizer);
    pan.finger = finger;
    if (finger.state == UIGestureRecognizer::began) pan.origin = finger.location;
}

void registerSystemPan() {
    standIn<SBSystemPanGestureRecognizer, UIPanGestureRecognizer, PanState>()
        .method<"state", &state>()
        .method<"view", &view>()
        .method<"locationInView:", &locationInView>()
        .method<"velocityInView:", &velocityInView>()
        .method<"translationInView:", &translationInView>()
        .method<"setTranslation:inView:", &setTranslation>();
}

}  // namespace simulator
