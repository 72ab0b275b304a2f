// Gesture recognisers: a state machine as a table, the delegate's say, actions. The kinds (tap, pan,
// long press, swipe, screen edge) differ in what they make of a touch.
#pragma once

#include <optional>
#include <vector>

#include "simulator/uikit/touch/touch.hpp"

namespace simulator {

struct Sample {
    double time;
    CGPoint place;
};

struct TargetAction {
    Object target;  // not owned
    SEL action;
};

// Also the numbers of the kinds, each of which uses a few. No constructor runs: a new recogniser is
// zero bytes, so a flag says where it departs from UIKit's default, negated where the default is YES.
struct RecognizerState {
    long state;
    long waiting;     // the state that it enters once those that must fail have failed; 0 for none
    UIView view;      // not owned
    Object delegate;  // not owned
    std::vector<TargetAction> actions;
    std::vector<Strong<UIGestureRecognizer>> mustFail;
    std::vector<Sample> samples;
    Copied<NSString> name;
    CGPoint start;
    CGPoint location;
    CGPoint origin;  // where the translation counts from
    double startTime;
    double pressDuration;                      // long press
    double movement;                           // long press
    unsigned long direction;                   // swipe
    unsigned long edges;                       // screen edge
    std::optional<unsigned long> mostTouches;  // pan
    long taps;                                 // wanted by a tap
    long tapsSeen;
    std::uint64_t ticket;
    bool disabled;
    bool keepsTouches;  // cancelsTouchesInView is NO
    bool delaysBegan;
    bool hurriesEnded;  // delaysTouchesEnded is NO
    bool touched;
};

inline RecognizerState& recognizerState(UIGestureRecognizer recognizer) {
    return stateOf<RecognizerState>(recognizer);
}

// Called by the view that takes it on; empty to let go.
void attach(UIGestureRecognizer recognizer, UIView view);

// It has the finger, or had it, and may still recognise.
bool isUndecided(UIGestureRecognizer recognizer);
// Enabled, and the delegate lets it have the touch.
bool receives(UIGestureRecognizer recognizer, UITouch touch);
// Still interested in the touch that it received.
bool follows(UIGestureRecognizer recognizer);
bool cancelsTouches(UIGestureRecognizer recognizer);
// The finger has left: ready for the next.
void touchIsOver(UIGestureRecognizer recognizer);

// The next state; one that the table does not allow raises. Recognising asks who has a say first, and
// waits for those that must fail before.
void enter(UIGestureRecognizer recognizer, long state);

void registerRecognizers();
void registerRecognizerKinds();

}  // namespace simulator
