#include "simulator/uikit/gesture/recognizer.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

using State = UIGestureRecognizer::State;

// Which state may follow which; rows from, columns to: possible, began, changed, ended, cancelled,
// failed. A reset is what leads back to possible.
constexpr std::array<std::array<bool, 6>, 6> mayFollow{{
    {false, true, false, true, true, true},     // possible
    {false, false, true, true, true, false},    // began
    {false, false, true, true, true, false},    // changed
    {true, false, false, false, false, false},  // ended
    {true, false, false, false, false, false},  // cancelled
    {true, false, false, false, false, false},  // failed
}};

bool isActive(long state) { return state == State::began || state == State::changed; }

bool delegateSays(Object delegate, SEL question, bool otherwise, UIGestureRecognizer recognizer,
                  Object other) {
    if (!delegate.respondsTo(question)) return otherwise;
    return sendMessage<bool>(delegate.get(), question, recognizer.get(), other.get());
}

bool together(UIGestureRecognizer a, UIGestureRecognizer b) {
    SEL question =
        selector<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:">();
    return delegateSays(recognizerState(a).delegate, question, false, a, b) ||
           delegateSays(recognizerState(b).delegate, question, false, b, a);
}

bool shouldBegin(UIGestureRecognizer recognizer) {
    Object delegate = recognizerState(recognizer).delegate;
    SEL question = selector<"gestureRecognizerShouldBegin:">();
    if (delegate.respondsTo(question) &&
        !sendMessage<bool>(delegate.get(), question, recognizer.get())) {
        return false;
    }
    UIView view = recognizerState(recognizer).view;
    return !view || view.send<"gestureRecognizerShouldBegin:", bool>(recognizer);
}

// Someone else who has recognised already and does not share.
bool isShutOut(UIGestureRecognizer recognizer) {
    for (auto& other : TouchScreen::shared().recognizers()) {
        long state = recognizerState(other).state;
        bool has = isActive(state) || state == State::ended;
        if (other != recognizer && has && !together(recognizer, other)) return true;
    }
    for (auto& first : recognizerState(recognizer).mustFail) {
        long state = recognizerState(first).state;
        if (state != State::failed && state != State::possible) return true;
    }
    return false;
}

using Recognizers = std::vector<Strong<UIGestureRecognizer>>;

bool holds(const Recognizers& all, UIGestureRecognizer recognizer) {
    return std::find(all.begin(), all.end(), recognizer) != all.end();
}

// Those that have seen what they need and wait for others to fail.
Recognizers& waitingOnes() {
    static auto& all = *new Recognizers;
    return all;
}

// Of two that wait for each other the later one goes first.
bool mustWait(UIGestureRecognizer recognizer) {
    for (auto& first : recognizerState(recognizer).mustFail) {
        const RecognizerState& s = recognizerState(first);
        if (isUndecided(first) && !(s.waiting != 0 && holds(s.mustFail, recognizer))) return true;
    }
    return false;
}

void waitFor(UIGestureRecognizer recognizer, long next) {
    recognizerState(recognizer).waiting = next;
    if (!holds(waitingOnes(), recognizer)) waitingOnes().push_back(retained(recognizer));
}

void waitNoMore(UIGestureRecognizer recognizer) {
    recognizerState(recognizer).waiting = 0;
    std::erase(waitingOnes(), recognizer);
}

void finishLate(UIGestureRecognizer recognizer, long next) {
    enter(recognizer, next);
    if (!holds(TouchScreen::shared().recognizers(), recognizer)) touchIsOver(recognizer);
}

// It will not recognise: those that waited for it alone may.
void letOthersGo(UIGestureRecognizer failed) {
    const Recognizers all = waitingOnes();
    for (auto& other : all) {
        const long next = recognizerState(other).waiting;
        if (next == 0 || !holds(recognizerState(other).mustFail, failed) || mustWait(other)) {
            continue;
        }
        waitNoMore(other);
        finishLate(other, next);
    }
    TouchScreen::shared().failed(failed);
}

void failOthers(UIGestureRecognizer recognizer) {
    const Recognizers waiting = waitingOnes();
    for (auto& other : waiting) {
        if (recognizerState(other).waiting != 0 &&
            holds(recognizerState(other).mustFail, recognizer)) {
            finishLate(other, State::failed);
        }
    }
    auto all = TouchScreen::shared().recognizers();
    for (auto& other : all) {
        if (other == recognizer || recognizerState(other).state != State::possible) continue;
        if (!together(recognizer, other)) other.send<"setState:">(static_cast<long>(State::failed));
    }
}

// One tap on a button or on the dots is theirs, whoever around them waits for one.
bool yieldsToControl(UIGestureRecognizer recognizer, UIView hit) {
    if (!recognizer.isKindOfClass(classOf<UITapGestureRecognizer>())) return false;
    const RecognizerState& s = recognizerState(recognizer);
    const bool control =
        hit.isKindOfClass(classOf<UIButton>()) || hit.isKindOfClass(classOf<UIPageControl>());
    return s.taps == 0 && s.view != hit && control && hit.send<"isEnabled", bool>();
}

// The same target and action again is the one that is there.
void addAction(UIGestureRecognizer recognizer, Object target, SEL action) {
    for (const TargetAction& a : recognizerState(recognizer).actions) {
        if (a.target == target && sel_isEqual(a.action, action)) return;
    }
    recognizerState(recognizer).actions.push_back({target, action});
}

void act(UIGestureRecognizer recognizer) {
    auto actions = recognizerState(recognizer).actions;
    for (const TargetAction& a : actions) {
        if (std::strchr(sel_getName(a.action), ':')) {
            sendMessage<void>(a.target.get(), a.action, recognizer.get());
        } else {
            sendMessage<void>(a.target.get(), a.action);
        }
    }
}

void reset(UIGestureRecognizer recognizer) {
    RecognizerState& s = recognizerState(recognizer);
    const bool wasUndecided = isUndecided(recognizer);
    s.state = State::possible;
    s.touched = false;
    s.tapsSeen = 0;
    s.samples.clear();
    recognizer.send<"reset">();
    if (wasUndecided) letOthersGo(recognizer);
}

void fail(UIGestureRecognizer recognizer) {
    waitNoMore(recognizer);
    recognizerState(recognizer).state = State::failed;
    letOthersGo(recognizer);
}

}  // namespace

bool isUndecided(UIGestureRecognizer recognizer) {
    const RecognizerState& s = recognizerState(recognizer);
    return s.state == State::possible && s.touched;
}

void attach(UIGestureRecognizer recognizer, UIView view) {
    recognizerState(recognizer).view = view;
}

bool receives(UIGestureRecognizer recognizer, UITouch touch) {
    RecognizerState& s = recognizerState(recognizer);
    if (s.disabled || s.waiting != 0) return false;
    SEL question = selector<"gestureRecognizer:shouldReceiveTouch:">();
    if (!delegateSays(s.delegate, question, true, recognizer, touch)) return false;
    if (yieldsToControl(recognizer, touchState(touch).view)) return false;
    s.touched = true;
    CGPoint place = touchState(touch).location;
    s.start = s.location = s.origin = place;
    s.startTime = touchState(touch).time;
    s.samples = {{s.startTime, place}};
    return true;
}

bool follows(UIGestureRecognizer recognizer) {
    const RecognizerState& s = recognizerState(recognizer);
    const bool done = s.waiting == State::ended;
    return s.touched && !done && (s.state == State::possible || isActive(s.state));
}

bool cancelsTouches(UIGestureRecognizer r) { return !recognizerState(r).keepsTouches; }

void touchIsOver(UIGestureRecognizer recognizer) {
    RecognizerState& s = recognizerState(recognizer);
    if (s.waiting != 0) return;
    if (isActive(s.state)) enter(recognizer, State::cancelled);
    if (s.state != State::possible || s.tapsSeen == 0) reset(recognizer);
}

void enter(UIGestureRecognizer recognizer, long next) {
    RecognizerState& s = recognizerState(recognizer);
    bool known = next >= 0 && next < 6;
    if (!known || !mayFollow[static_cast<std::size_t>(s.state)][static_cast<std::size_t>(next)]) {
        raise("NSInternalInconsistencyException"_ns, "a gesture recogniser cannot go from state " +
                                                         std::to_string(s.state) + " to " +
                                                         std::to_string(next));
    }
    Strong<UIGestureRecognizer> kept = retained(recognizer);
    if (next == State::failed) return fail(recognizer);
    bool recognises = s.state == State::possible && (next == State::began || next == State::ended);
    if (recognises && !isShutOut(recognizer) && mustWait(recognizer)) {
        return waitFor(recognizer, next);
    }
    if (recognises && (isShutOut(recognizer) || !shouldBegin(recognizer))) return fail(recognizer);
    if (next == State::cancelled) waitNoMore(recognizer);
    s.state = next;
    if (recognises) failOthers(recognizer);
    if (next != State::possible) act(recognizer);
    if (recognises) TouchScreen::shared().recognized(recognizer);
}

void registerRecognizers() {
    table<UIGestureRecognizer, Object, RecognizerState>()
        .method<"init">([](UIGestureRecognizer self) -> UIGestureRecognizer {
            return self.send<"initWithTarget:action:", UIGestureRecognizer>(Object(), SEL());
        })
        .method<"initWithTarget:action:">(
            [](UIGestureRecognizer self, Object target, SEL action) -> UIGestureRecognizer {
                auto r = super<UIGestureRecognizer, "init", UIGestureRecognizer>(self);
                if (target && action) addAction(r, target, action);
                return r;
            })
        .method<"addTarget:action:">(
            [](UIGestureRecognizer r, Object target, SEL action) { addAction(r, target, action); })
        .method<"removeTarget:action:">([](UIGestureRecognizer r, Object target, SEL action) {
            std::erase_if(recognizerState(r).actions, [&](const TargetAction& a) {
                return (!target || a.target == target) &&
                       (!action || sel_isEqual(a.action, action));
            });
        })
        .readonly<"state", &RecognizerState::state>()
        .method<"setState:">([](UIGestureRecognizer r, long state) { enter(r, state); })
        .readonly<"view", &RecognizerState::view>()
        .property<"delegate", &RecognizerState::delegate>()
        .property<"name", &RecognizerState::name>()
        .method<"isEnabled">([](UIGestureRecognizer r) { return !recognizerState(r).disabled; })
        .method<"setEnabled:">([](UIGestureRecognizer r, bool enabled) {
            RecognizerState& s = recognizerState(r);
            s.disabled = !enabled;
            if (enabled) return;
            if (isActive(s.state)) enter(r, State::cancelled);
            const bool wasUndecided = isUndecided(r);
            s.touched = false;
            waitNoMore(r);
            if (wasUndecided) letOthersGo(r);
        })
        .method<"cancelsTouchesInView">([](UIGestureRecognizer r) { return cancelsTouches(r); })
        .method<"setCancelsTouchesInView:">(
            [](UIGestureRecognizer r, bool yes) { recognizerState(r).keepsTouches = !yes; })
        .property<"delaysTouchesBegan", &RecognizerState::delaysBegan>()
        .method<"delaysTouchesEnded">(
            [](UIGestureRecognizer r) { return !recognizerState(r).hurriesEnded; })
        .method<"setDelaysTouchesEnded:">(
            [](UIGestureRecognizer r, bool yes) { recognizerState(r).hurriesEnded = !yes; })
        .method<"requireGestureRecognizerToFail:">(
            [](UIGestureRecognizer r, UIGestureRecognizer other) {
                recognizerState(r).mustFail.push_back(retained(other));
            })
        .method<"numberOfTouches">([](UIGestureRecognizer r) -> unsigned long {
            return recognizerState(r).touched ? 1 : 0;
        })
        .method<"locationInView:">([](UIGestureRecognizer r, UIView view) -> CGPoint {
            return fromScreen(recognizerState(r).location, view);
        })
        .method<"locationOfTouch:inView:">(
            [](UIGestureRecognizer r, unsigned long, UIView view) -> CGPoint {
                return fromScreen(recognizerState(r).location, view);
            })
        .method<"reset">([](UIGestureRecognizer) {})
        .method<"touchesBegan:withEvent:">([](UIGestureRecognizer, Object, UIEvent) {})
        .method<"touchesMoved:withEvent:">([](UIGestureRecognizer, Object, UIEvent) {})
        .method<"touchesEnded:withEvent:">([](UIGestureRecognizer, Object, UIEvent) {})
        .method<"touchesCancelled:withEvent:">([](UIGestureRecognizer r, Object, UIEvent) {
            bool active = isActive(recognizerState(r).state);
            enter(r, active ? State::cancelled : State::failed);
        });
    registerRecognizerKinds();
}

}  // namespace simulator
