// What each kind of recogniser makes of a touch. The limits of pan and long press are documented or
// widely seen (10 points, 0.5 s); those of tap and swipe are private to the platform, and these are
// the numbers that are often quoted. Points and seconds.
#include <cmath>
#include <limits>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

using State = UIGestureRecognizer::State;

constexpr double hysteresis = 10;  // pan, long press
constexpr double tapMovement = 45;
constexpr double tapDuration = 0.75;
constexpr double betweenTaps = 0.35;
constexpr double swipeDuration = 0.5;
constexpr double swipeDistance = 50;
constexpr double swipeStray = 50;       // across the direction
constexpr double velocityWindow = 0.1;  // how far back samples count
constexpr double edgeWidth = 20;
constexpr unsigned long anyNumberOfTouches = std::numeric_limits<unsigned long>::max();

RecognizerState& follow(UIGestureRecognizer r, Object touches) {
    RecognizerState& s = recognizerState(r);
    const TouchState& touch = touchState(anyTouch(touches));
    s.location = touch.location;
    s.samples.push_back({touch.time, touch.location});
    return s;
}

double moved(const RecognizerState& s) { return geometry::distance(s.start, s.location); }
bool active(const RecognizerState& s) {
    return s.state == State::began || s.state == State::changed;
}

// Over the last tenth of a second; at rest when nothing has moved in that time.
CGPoint velocity(const RecognizerState& s) {
    if (s.samples.size() < 2) return {0, 0};
    double now = Clock::shared().now();
    const Sample& last = s.samples.back();
    const Sample* first = &last;
    for (auto it = s.samples.rbegin(); it != s.samples.rend(); ++it) {
        if (now - it->time > velocityWindow + 1e-9) break;
        first = &*it;
    }
    double span = last.time - first->time;
    if (span <= 0) return {0, 0};
    return {(last.place.x - first->place.x) / span, (last.place.y - first->place.y) / span};
}

void registerPan() {
    table<UIPanGestureRecognizer, UIGestureRecognizer>()
        .method<"touchesMoved:withEvent:">([](UIPanGestureRecognizer r, Object touches, UIEvent) {
            RecognizerState& s = follow(r, touches);
            if (active(s)) {
                enter(r, State::changed);
            } else if (s.state == State::possible && moved(s) >= hysteresis) {
                r.send<"setState:">(static_cast<long>(State::began));
            }
        })
        .method<"touchesEnded:withEvent:">([](UIPanGestureRecognizer r, Object, UIEvent) {
            bool begun = active(recognizerState(r));
            enter(r, begun ? State::ended : State::failed);
        })
        .method<"translationInView:">([](UIPanGestureRecognizer r, UIView view) -> CGPoint {
            const RecognizerState& s = recognizerState(r);
            return vectorFromScreen({s.location.x - s.origin.x, s.location.y - s.origin.y}, view);
        })
        .method<"setTranslation:inView:">(
            [](UIPanGestureRecognizer r, CGPoint translation, UIView view) {
                RecognizerState& s = recognizerState(r);
                CGPoint onScreen = vectorToScreen(translation, view);
                // The finger's velocity outlives it, whatever the reference page says: recognisers
                // whose translation is zeroed at every change do report one at their end.
                s.origin = {s.location.x - onScreen.x, s.location.y - onScreen.y};
            })
        .method<"velocityInView:">([](UIPanGestureRecognizer r, UIView view) -> CGPoint {
            return vectorFromScreen(velocity(recognizerState(r)), view);
        })
        .method<"maximumNumberOfTouches">([](UIPanGestureRecognizer r) -> unsigned long {
            return recognizerState(r).mostTouches.value_or(anyNumberOfTouches);
        })
        .method<"setMaximumNumberOfTouches:">([](UIPanGestureRecognizer r, unsigned long most) {
            recognizerState(r).mostTouches = most;
        })
        .method<"minimumNumberOfTouches">([](UIPanGestureRecognizer) -> unsigned long { return 1; })
        .method<"setMinimumNumberOfTouches:">([](UIPanGestureRecognizer, unsigned long) {});
}

// UIRectEdge: top 1, left 2, bottom 4, right 8.
bool startsAtEdge(const RecognizerState& s) {
    CGSize size = screen().bounds().size;
    return ((s.edges & 1) && s.start.y <= edgeWidth) || ((s.edges & 2) && s.start.x <= edgeWidth) ||
           ((s.edges & 4) && s.start.y >= size.height - edgeWidth) ||
           ((s.edges & 8) && s.start.x >= size.width - edgeWidth);
}

void registerScreenEdge() {
    table<UIScreenEdgePanGestureRecognizer, UIPanGestureRecognizer>()
        .method<"edges">([](UIGestureRecognizer r) { return recognizerState(r).edges; })
        .method<"setEdges:">(
            [](UIGestureRecognizer r, unsigned long edges) { recognizerState(r).edges = edges; })
        .method<"touchesBegan:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            if (!startsAtEdge(recognizerState(r))) enter(r, State::failed);
        });
}

void registerTap() {
    table<UITapGestureRecognizer, UIGestureRecognizer>()
        .method<"numberOfTapsRequired">([](UIGestureRecognizer r) -> unsigned long {
            return static_cast<unsigned long>(recognizerState(r).taps + 1);
        })
        .method<"setNumberOfTapsRequired:">([](UIGestureRecognizer r, unsigned long taps) {
            recognizerState(r).taps = static_cast<long>(taps) - 1;
        })
        .method<"numberOfTouchesRequired">([](UIGestureRecognizer) -> unsigned long { return 1; })
        .method<"setNumberOfTouchesRequired:">([](UIGestureRecognizer, unsigned long) {})
        .method<"touchesBegan:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            Clock::shared().withdraw(recognizerState(r).ticket);
        })
        .method<"touchesMoved:withEvent:">([](UIGestureRecognizer r, Object touches, UIEvent) {
            if (moved(follow(r, touches)) > tapMovement) enter(r, State::failed);
        })
        .method<"touchesEnded:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            RecognizerState& s = recognizerState(r);
            if (Clock::shared().now() - s.startTime > tapDuration) return enter(r, State::failed);
            if (++s.tapsSeen > s.taps) {
                r.send<"setState:">(static_cast<long>(State::ended));
                return;
            }
            Strong<UIGestureRecognizer> kept = retained(r);
            s.ticket = Clock::shared().after(betweenTaps, [kept] {
                RecognizerState& late = recognizerState(kept);
                if (late.state == State::possible) enter(kept, State::failed);
                touchIsOver(kept);
            });
        });
}

void registerLongPress() {
    table<UILongPressGestureRecognizer, UIGestureRecognizer>()
        .method<"initWithTarget:action:">([](UIGestureRecognizer self, Object target,
                                             SEL action) -> UIGestureRecognizer {
            auto r =
                super<UILongPressGestureRecognizer, "initWithTarget:action:", UIGestureRecognizer>(
                    self, target, action);
            recognizerState(r).pressDuration = 0.5;
            recognizerState(r).movement = hysteresis;
            return r;
        })
        .method<"minimumPressDuration">(
            [](UIGestureRecognizer r) -> double { return recognizerState(r).pressDuration; })
        .method<"setMinimumPressDuration:">(
            [](UIGestureRecognizer r, double s) { recognizerState(r).pressDuration = s; })
        .method<"allowableMovement">(
            [](UIGestureRecognizer r) -> double { return recognizerState(r).movement; })
        .method<"setAllowableMovement:">(
            [](UIGestureRecognizer r, double points) { recognizerState(r).movement = points; })
        .method<"touchesBegan:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            Strong<UIGestureRecognizer> kept = retained(r);
            RecognizerState& s = recognizerState(r);
            s.ticket = Clock::shared().after(s.pressDuration, [kept] {
                RecognizerState& held = recognizerState(kept);
                if (held.touched && held.state == State::possible) {
                    kept.send<"setState:">(static_cast<long>(State::began));
                }
            });
        })
        .method<"touchesMoved:withEvent:">([](UIGestureRecognizer r, Object touches, UIEvent) {
            RecognizerState& s = follow(r, touches);
            if (active(s)) {
                enter(r, State::changed);
            } else if (moved(s) > s.movement) {
                enter(r, State::failed);
            }
        })
        .method<"touchesEnded:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            enter(r, active(recognizerState(r)) ? State::ended : State::failed);
        })
        .method<"reset">(
            [](UIGestureRecognizer r) { Clock::shared().withdraw(recognizerState(r).ticket); });
}

// UISwipeGestureRecognizerDirection: right 1, left 2, up 4, down 8.
bool swiped(const RecognizerState& s) {
    double x = s.location.x - s.start.x;
    double y = s.location.y - s.start.y;
    auto far = [](double along, double across) {
        return along >= swipeDistance && std::abs(across) <= std::min(swipeStray, along);
    };
    unsigned long d = s.direction;
    return ((d & 1) && far(x, y)) || ((d & 2) && far(-x, y)) || ((d & 4) && far(-y, x)) ||
           ((d & 8) && far(y, x));
}

void registerSwipe() {
    table<UISwipeGestureRecognizer, UIGestureRecognizer>()
        .method<"initWithTarget:action:">([](UIGestureRecognizer self, Object target,
                                             SEL action) -> UIGestureRecognizer {
            auto r = super<UISwipeGestureRecognizer, "initWithTarget:action:", UIGestureRecognizer>(
                self, target, action);
            recognizerState(r).direction = 1;
            return r;
        })
        .method<"direction">([](UIGestureRecognizer r) { return recognizerState(r).direction; })
        .method<"setDirection:">(
            [](UIGestureRecognizer r, unsigned long d) { recognizerState(r).direction = d; })
        .method<"numberOfTouchesRequired">([](UIGestureRecognizer) -> unsigned long { return 1; })
        .method<"setNumberOfTouchesRequired:">([](UIGestureRecognizer, unsigned long) {})
        .method<"touchesMoved:withEvent:">([](UIGestureRecognizer r, Object touches, UIEvent) {
            RecognizerState& s = follow(r, touches);
            if (Clock::shared().now() - s.startTime > swipeDuration) {
                enter(r, State::failed);
            } else if (swiped(s)) {
                r.send<"setState:">(static_cast<long>(State::ended));
            }
        })
        .method<"touchesEnded:withEvent:">(
            [](UIGestureRecognizer r, Object, UIEvent) { enter(r, State::failed); });
}

}  // namespace

void registerRecognizerKinds() {
    registerPan();
    registerScreenEdge();
    registerTap();
    registerLongPress();
    registerSwipe();
}

}  // namespace simulator
