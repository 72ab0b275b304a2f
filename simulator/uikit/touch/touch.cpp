#include "simulator/uikit/touch/touch.hpp"

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/view/scroll/scroll_view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

// How long a scroll view holds a touch back to see whether it becomes a drag, seconds.
constexpr double contentDelay = 0.15;

struct EventState {
    Strong<UITouch> touch;
};

Object setOf(UITouch touch) {
    return Object(classObject(objc_getClass("NSSet"))).send<"setWithObject:", Object>(touch);
}

bool isHeldBack(UIView hit) {
    for (UIView v = viewState(hit).superview; v; v = viewState(v).superview) {
        if (v.isKindOfClass(classOf<UIScrollView>()) && delaysContent(as<UIScrollView>(v))) {
            return true;
        }
    }
    return false;
}

}  // namespace

// The frontmost window that has a view for the place.
UIView viewUnder(CGPoint place, UIEvent event) {
    auto windows = windowsBackToFront();
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        if (UIView hit = it->hitTest(fromScreen(place, *it), event)) return hit;
    }
    return UIView();
}

CGPoint fromScreen(CGPoint place, UIView view) {
    if (!view) return place;
    return geometry::apply(geometry::inverted(conversionToScreen(view)), place);
}

UITouch anyTouch(Object touches) { return touches.send<"anyObject", UITouch>(); }

TouchScreen& TouchScreen::shared() {
    static auto& screen = *new TouchScreen;
    return screen;
}

void TouchScreen::down(CGPoint place) {
    if (touch_) return;
    AutoreleasePool pool;
    event_ = create<UIEvent>();
    UIView hit = viewUnder(place, event_);
    if (!hit) return;
    touch_ = create<UITouch>();
    stateOf<EventState>(event_).touch = touch_;
    double now = Clock::shared().now();
    TouchState& state = touchState(touch_);
    state.location = state.previous = state.start = place;
    state.time = state.startTime = now;
    state.taps = 1;
    state.view = retained(hit);
    state.window = retained(windowOf(hit));
    collect(hit);
    tellRecognizers(selector<"touchesBegan:withEvent:">());
    if (!touch_ || touchState(touch_).taken) return;
    if (isHeldBack(hit)) {
        delay_ = Clock::shared().after(contentDelay, [this] {
            if (touch_) deliverBegan();
        });
    } else {
        deliverBegan();
    }
}

void TouchScreen::collect(UIView hit) {
    recognizers_.clear();
    for (UIView v = hit; v; v = viewState(v).superview) {
        auto all = viewState(v).recognizers;
        for (auto& recognizer : all) {
            if (receives(recognizer, touch_)) recognizers_.push_back(recognizer);
        }
    }
}

void TouchScreen::deliverBegan() {
    TouchState& state = touchState(touch_);
    if (state.delivered || state.taken) return;
    state.delivered = true;
    tellView(selector<"touchesBegan:withEvent:">());
}

void TouchScreen::tellRecognizers(SEL message) {
    Strong<UITouch> touch = touch_;
    Strong<UIEvent> event = event_;
    auto all = recognizers_;
    for (auto& recognizer : all) {
        if (!follows(recognizer)) continue;
        sendMessage<void>(recognizer.get(), message, setOf(touch).get(), event.get());
    }
}

void TouchScreen::tellView(SEL message) {
    Strong<UITouch> touch = touch_;
    Strong<UIEvent> event = event_;
    sendMessage<void>(touchState(touch).view.get(), message, setOf(touch).get(), event.get());
}

void TouchScreen::move(CGPoint place) {
    if (!touch_) return;
    AutoreleasePool pool;
    TouchState& state = touchState(touch_);
    state.previous = state.location;
    state.location = place;
    state.time = Clock::shared().now();
    state.phase = 1;
    tellRecognizers(selector<"touchesMoved:withEvent:">());
    if (touch_ && touchState(touch_).delivered && !touchState(touch_).taken) {
        tellView(selector<"touchesMoved:withEvent:">());
    }
}

void TouchScreen::up() { finish(selector<"touchesEnded:withEvent:">(), 3); }
void TouchScreen::cancel() { finish(selector<"touchesCancelled:withEvent:">(), 4); }

void TouchScreen::finish(SEL message, long phase) {
    if (!touch_) return;
    AutoreleasePool pool;
    TouchState& state = touchState(touch_);
    state.time = Clock::shared().now();
    state.phase = phase;
    Clock::shared().withdraw(delay_);
    tellRecognizers(message);
    if (!touch_) return;
    if (!touchState(touch_).taken) {
        if (phase == 3) deliverBegan();
        if (touch_ && touchState(touch_).delivered && !touchState(touch_).taken) tellView(message);
    }
    auto all = std::exchange(recognizers_, {});
    touch_ = {};
    event_ = {};
    for (auto& recognizer : all) touchIsOver(recognizer);
}

void TouchScreen::recognized(UIGestureRecognizer recognizer) {
    if (!touch_ || !cancelsTouches(recognizer)) return;
    TouchState& state = touchState(touch_);
    if (std::exchange(state.taken, true)) return;
    Clock::shared().withdraw(delay_);
    if (state.delivered) tellView(selector<"touchesCancelled:withEvent:">());
}

void registerTouch() {
    table<UITouch, Object, TouchState>()
        .method<"locationInView:">([](UITouch t, UIView view) -> CGPoint {
            UIView in = view ? view : UIView(touchState(t).window.get());
            return fromScreen(touchState(t).location, in);
        })
        .method<"previousLocationInView:">([](UITouch t, UIView view) -> CGPoint {
            UIView in = view ? view : UIView(touchState(t).window.get());
            return fromScreen(touchState(t).previous, in);
        })
        .readonly<"view", &TouchState::view>()
        .readonly<"window", &TouchState::window>()
        .readonly<"timestamp", &TouchState::time>()
        .readonly<"tapCount", &TouchState::taps>()
        .readonly<"phase", &TouchState::phase>();
    table<UIEvent, Object, EventState>()
        .method<"allTouches">([](UIEvent e) { return setOf(stateOf<EventState>(e).touch); })
        .method<"timestamp">([](UIEvent) -> double { return Clock::shared().now(); })
        .method<"type">([](UIEvent) -> long { return 0; });
}

}  // namespace simulator
