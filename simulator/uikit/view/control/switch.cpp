// UISwitch: a track with a knob. A tap turns it over and says so; it has one size.
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/view/control/control.hpp"

namespace simulator {

namespace {

constexpr double length = 51, thickness = 31, inset = 2;  // points
constexpr double knob = thickness - 2 * inset;
constexpr double turning = 0.2;  // seconds

struct SwitchState {
    bool on;
    Strong<UIView> track, knob;
};

SwitchState& state(UISwitch view) { return stateOf<SwitchState>(view); }

void look(UISwitch view) {
    SwitchState& s = state(view);
    if (!s.track) return;
    const UIColor off = makeColor({0.91, 0.91, 0.92, 1}, {0.23, 0.23, 0.24, 1});
    s.track.setBackgroundColor(s.on ? makeColor({0.2, 0.78, 0.35, 1}) : off);
    s.knob.setFrame(rect(s.on ? length - inset - knob : inset, inset, knob, knob));
}

Strong<UIView> part(UISwitch view, CGRect frame) {
    auto result = create<UIView, "initWithFrame:">(frame);
    if (!result) return result;
    viewState(result).interactionDisabled = true;
    layerState(layerOf(result)).values.cornerRadius = frame.size.height / 2;
    insertSubview(view, result, viewState(view).subviews.size());
    return result;
}

UISwitch initWithFrame(UISwitch raw, CGRect frame) {
    auto self = super<UISwitch, "initWithFrame:", UISwitch>(
        raw, rect(frame.origin.x, frame.origin.y, length, thickness));
    if (!self) return self;
    SwitchState& s = state(self);
    s.track = part(self, rect(0, 0, length, thickness));
    s.knob = part(self, rect(inset, inset, knob, knob));
    s.knob.setBackgroundColor(UIColor::white());
    look(self);
    return self;
}

void setOn(UISwitch view, bool on, bool animated) {
    state(view).on = on;
    if (!animated) return look(view);
    const Strong<UISwitch> kept = retained(view);
    UIView::animate(turning, block([kept] { look(kept); }));
}

void released(UISwitch view, UITouch touch) {
    if (!geometry::contains(valuesOf(view).bounds, fromScreen(touchState(touch).location, view)))
        return;
    setOn(view, !state(view).on, true);
    sendControlEvents(UIControl(view.get()), valueChanged, Object());
}

}  // namespace

void registerSwitch() {
    table<UISwitch, UIControl, SwitchState>()
        .method<"initWithFrame:">([](UISwitch v, CGRect frame) { return initWithFrame(v, frame); })
        .method<"isOn">([](UISwitch v) { return state(v).on; })
        .method<"setOn:">([](UISwitch v, bool on) { setOn(v, on, false); })
        .method<"setOn:animated:">(
            [](UISwitch v, bool on, bool animated) { setOn(v, on, animated); })
        .method<"intrinsicContentSize">([](UISwitch) { return CGSize{length, thickness}; })
        .method<"sizeThatFits:">([](UISwitch, CGSize) { return CGSize{length, thickness}; })
        .method<"endTrackingWithTouch:withEvent:">(
            [](UISwitch v, UITouch touch, UIEvent) { released(v, touch); });
}

}  // namespace simulator
