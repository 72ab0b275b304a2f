#include "simulator/uikit/view/control/control.hpp"

#include <algorithm>
#include <cstring>

#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace simulator {

namespace {

// While tracking, the inside reaches so far beyond the bounds, in points.
constexpr double trackingMargin = 70;

struct Target {
    Object target;  // not owned
    SEL action;
    unsigned long events;
};

struct ControlState {
    std::vector<Target> targets;
    bool disabled, selected, highlighted, tracking, inside;
    long horizontal, vertical;  // content alignment
};

ControlState& control(UIControl view) { return stateOf<ControlState>(view); }

// The same target and action again merges the masks: one call for an event.
void addTarget(UIControl view, Object target, SEL action, unsigned long events) {
    for (Target& t : control(view).targets) {
        if (t.target == target && sel_isEqual(t.action, action)) {
            t.events |= events;
            return;
        }
    }
    control(view).targets.push_back({target, action, events});
}

void removeTarget(UIControl view, Object target, SEL action, unsigned long events) {
    auto& targets = control(view).targets;
    for (Target& t : targets) {
        if ((!target || t.target == target) && (!action || sel_isEqual(t.action, action))) {
            t.events &= ~events;
        }
    }
    std::erase_if(targets, [](const Target& t) { return t.events == 0; });
}

// With none, one or two arguments, as the selector has colons.
void perform(const Target& t, UIControl sender, Object event) {
    Object receiver = t.target;
    for (Object r = sender; !receiver && r; r = r.send<"nextResponder", Object>()) {
        if (r.respondsTo(t.action)) receiver = r;
    }
    const char* colon = std::strchr(sel_getName(t.action), ':');
    if (!colon) {
        sendMessage<void>(receiver.get(), t.action);
    } else if (!std::strchr(colon + 1, ':')) {
        sendMessage<void>(receiver.get(), t.action, sender.get());
    } else {
        sendMessage<void>(receiver.get(), t.action, sender.get(), event.get());
    }
}

bool isInside(UIControl view, Object touches) {
    CGRect area = valuesOf(view).bounds;
    area.origin = {area.origin.x - trackingMargin, area.origin.y - trackingMargin};
    area.size = {area.size.width + 2 * trackingMargin, area.size.height + 2 * trackingMargin};
    return geometry::contains(area, fromScreen(touchState(anyTouch(touches)).location, view));
}

void began(UIControl view, Object touches, UIEvent event) {
    ControlState& s = control(view);
    if (s.disabled) return;
    s.tracking = view.send<"beginTrackingWithTouch:withEvent:", bool>(anyTouch(touches), event);
    if (!s.tracking) return;
    s.inside = true;
    view.send<"setHighlighted:">(true);
    sendControlEvents(view, touchDown, event);
}

void moved(UIControl view, Object touches, UIEvent event) {
    ControlState& s = control(view);
    if (!s.tracking) return;
    s.tracking = view.send<"continueTrackingWithTouch:withEvent:", bool>(anyTouch(touches), event);
    if (!s.tracking) return view.send<"setHighlighted:">(false);
    bool before = std::exchange(s.inside, isInside(view, touches));
    unsigned long events = s.inside ? touchDragInside : touchDragOutside;
    if (before != s.inside) {
        view.send<"setHighlighted:">(s.inside);
        events |= s.inside ? touchDragEnter : touchDragExit;
    }
    sendControlEvents(view, events, event);
}

void ended(UIControl view, Object touches, UIEvent event) {
    ControlState& s = control(view);
    if (!std::exchange(s.tracking, false)) return;
    view.send<"setHighlighted:">(false);
    view.send<"endTrackingWithTouch:withEvent:">(anyTouch(touches), event);
    sendControlEvents(view, isInside(view, touches) ? touchUpInside : touchUpOutside, event);
}

void cancelled(UIControl view, UIEvent event) {
    ControlState& s = control(view);
    if (!std::exchange(s.tracking, false)) return;
    view.send<"setHighlighted:">(false);
    view.send<"cancelTrackingWithEvent:">(event);
    sendControlEvents(view, touchCancel, event);
}

void addTracking(const Table<UIControl>& controls) {
    controls
        .method<"beginTrackingWithTouch:withEvent:">(
            [](UIControl, UITouch, UIEvent) -> bool { return true; })
        .method<"continueTrackingWithTouch:withEvent:">(
            [](UIControl, UITouch, UIEvent) -> bool { return true; })
        .method<"endTrackingWithTouch:withEvent:">([](UIControl, UITouch, UIEvent) {})
        .method<"cancelTrackingWithEvent:">([](UIControl, UIEvent) {})
        .method<"touchesBegan:withEvent:">([](UIControl v, Object t, UIEvent e) { began(v, t, e); })
        .method<"touchesMoved:withEvent:">([](UIControl v, Object t, UIEvent e) { moved(v, t, e); })
        .method<"touchesEnded:withEvent:">([](UIControl v, Object t, UIEvent e) { ended(v, t, e); })
        .method<"touchesCancelled:withEvent:">(
            [](UIControl v, Object, UIEvent e) { cancelled(v, e); })
        .flag<"isTracking", "_setTracking:", &ControlState::tracking>()
        .flag<"isTouchInside", "_setTouchInside:", &ControlState::inside>();
}

}  // namespace

void sendControlEvents(UIControl view, unsigned long events, Object event) {
    Strong<UIControl> kept = retained(view);
    auto targets = control(view).targets;
    for (const Target& t : targets) {
        if (t.events & events) perform(t, view, event);
    }
}

void registerControl() {
    auto controls = table<UIControl, UIView, ControlState>();
    controls
        .method<"addTarget:action:forControlEvents:">(
            [](UIControl v, Object target, SEL action, unsigned long events) {
                addTarget(v, target, action, events);
            })
        .method<"removeTarget:action:forControlEvents:">(
            [](UIControl v, Object target, SEL action, unsigned long events) {
                removeTarget(v, target, action, events);
            })
        .method<"sendActionsForControlEvents:">([](UIControl v, unsigned long events) {
            if (!control(v).disabled) sendControlEvents(v, events, Object());
        })
        .method<"allControlEvents">([](UIControl v) -> unsigned long {
            unsigned long all = 0;
            for (const Target& t : control(v).targets) all |= t.events;
            return all;
        })
        .method<"isEnabled">([](UIControl v) -> bool { return !control(v).disabled; })
        .method<"setEnabled:">([](UIControl v, bool yes) { control(v).disabled = !yes; })
        .flag<"isSelected", "setSelected:", &ControlState::selected>()
        .flag<"isHighlighted", "setHighlighted:", &ControlState::highlighted>()
        .property<"contentHorizontalAlignment", &ControlState::horizontal>()
        .property<"contentVerticalAlignment", &ControlState::vertical>()
        .method<"state">([](UIControl v) -> unsigned long {
            const ControlState& s = control(v);
            return (s.highlighted ? 1UL : 0UL) | (s.disabled ? 2UL : 0UL) |
                   (s.selected ? 4UL : 0UL);
        });
    addTracking(controls);
}

}  // namespace simulator
