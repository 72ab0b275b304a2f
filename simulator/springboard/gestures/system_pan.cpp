#include "simulator/springboard/gestures/system_pan.hpp"

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

CGPoint locationInView(SBSystemPanGestureRecognizer self, UIView) {
    return stateOfPan(self).finger.location;
}

CGPoint velocityInView(SBSystemPanGestureRecognizer self, UIView) {
    return stateOfPan(self).finger.velocity;
}

CGPoint translationInView(SBSystemPanGestureRecognizer self, UIView) {
    const PanState& pan = stateOfPan(self);
    return {pan.finger.location.x - pan.origin.x, pan.finger.location.y - pan.origin.y};
}

void setTranslation(SBSystemPanGestureRecognizer self, CGPoint translation, UIView) {
    PanState& pan = stateOfPan(self);
    pan.origin = {pan.finger.location.x - translation.x, pan.finger.location.y - translation.y};
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
