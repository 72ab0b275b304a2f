// One finger on the glass. The touch screen finds the view under it, gives each touch first to the
// recognisers of that view and its superviews, then to the view, as long as none of them took it. A
// recogniser that delays touches holds the beginning, or the end, back until it has decided.
// Places are points of the screen, in the space that windows lie in; times come from the clock.
#pragma once

#include <vector>

#include "simulator/uikit/view/view.hpp"

namespace simulator {

struct TouchState {
    CGPoint location;  // on the screen
    CGPoint previous;
    CGPoint start;
    double time;
    double startTime;
    long phase;  // UITouchPhase: began 0, moved 1, stationary 2, ended 3, cancelled 4
    unsigned long taps;
    Strong<UIView> view;
    Strong<UIWindow> window;
    bool delivered;  // the view has been told that it began
    bool taken;      // a recogniser cancelled it for the view
};

class TouchScreen {
  public:
    static TouchScreen& shared();

    // A second finger is not there: down while one is down, and the others without one, do nothing.
    void down(CGPoint place);
    void move(CGPoint place);
    void up();
    void cancel();
    bool isDown() const { return static_cast<bool>(touch_); }

    // A recogniser has recognised: the view's touch is cancelled when it says so.
    void recognized(UIGestureRecognizer recognizer);
    // It will not recognise: what was held back for it alone reaches the view.
    void failed(UIGestureRecognizer recognizer);
    const std::vector<Strong<UIGestureRecognizer>>& recognizers() const { return recognizers_; }
    UITouch touch() const { return touch_; }

  private:
    using Recognizers = std::vector<Strong<UIGestureRecognizer>>;
    // A finger that has left, of whose end the view is told when these have failed.
    struct HeldEnd {
        Strong<UITouch> touch;
        Strong<UIEvent> event;
        Recognizers undecided;
    };

    void collect(UIView hit);
    bool isBeginningHeld() const;
    void stopWaitingForScroll();
    void deliverBegan();
    void tellRecognizers(SEL message);
    void finish(SEL message, long phase);
    void end(SEL message);
    Recognizers holdersOfEnd() const;
    void settleHeld(UIGestureRecognizer recognizer, bool cancels);

    Strong<UITouch> touch_;
    Strong<UIEvent> event_;
    Recognizers recognizers_;
    std::vector<HeldEnd> heldEnds_;
    std::uint64_t delay_ = 0;
    bool waitsForScroll_ = false;
};

inline TouchState& touchState(UITouch touch) { return stateOf<TouchState>(touch); }
// What a finger put down at that place of the screen would touch.
UIView viewUnder(CGPoint place, UIEvent event = {});
// The point of the screen in the view's coordinates; in the window's when there is no view.
CGPoint fromScreen(CGPoint place, UIView view);
// A length or a speed of the screen as the view measures it, and back; unchanged without a view.
CGPoint vectorFromScreen(CGPoint vector, UIView view);
CGPoint vectorToScreen(CGPoint vector, UIView view);
// The one touch of a set of touches.
UITouch anyTouch(Object touches);

void registerTouch();

}  // namespace simulator
