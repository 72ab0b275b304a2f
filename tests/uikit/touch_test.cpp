// Touches: who is hit, how recognisers and controls see them, how scroll views drag and page.
#include "simulator/uikit/touch/touch.hpp"

#include <limits>

#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/view/control/control.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {

namespace {

// Writes down what it is told.
struct Witness : Object {
    static constexpr FixedString name{"TouchWitness"};
    using Object::Object;
};
std::vector<std::string>& notes() {
    static auto& all = *new std::vector<std::string>;
    return all;
}

struct TouchView : UIView {
    static constexpr FixedString name{"TouchWitnessView"};
    using UIView::UIView;
};

void registerWitnesses() {
    table<Witness, Object>()
        .method<"recognized:">([](Witness, UIGestureRecognizer r) {
            notes().push_back("state " + std::to_string(r.state()));
        })
        .method<"pressed">([](Witness) { notes().push_back("pressed"); })
        .method<"scrollViewWillBeginDragging:">(
            [](Witness, UIScrollView) { notes().push_back("willBeginDragging"); })
        .method<"scrollViewDidEndDragging:willDecelerate:">([](Witness, UIScrollView, bool more) {
            notes().push_back(more ? "didEndDragging, more" : "didEndDragging");
        })
        .method<"scrollViewWillBeginDecelerating:">(
            [](Witness, UIScrollView) { notes().push_back("willBeginDecelerating"); })
        .method<"scrollViewDidEndDecelerating:">(
            [](Witness, UIScrollView) { notes().push_back("didEndDecelerating"); })
        .method<"scrollViewDidEndScrollingAnimation:">(
            [](Witness, UIScrollView) { notes().push_back("didEndScrollingAnimation"); });
    table<TouchView, UIView>()
        .method<"touchesBegan:withEvent:">(
            [](TouchView, Object, UIEvent) { notes().push_back("began"); })
        .method<"touchesEnded:withEvent:">(
            [](TouchView, Object, UIEvent) { notes().push_back("ended"); })
        .method<"touchesCancelled:withEvent:">(
            [](TouchView, Object, UIEvent) { notes().push_back("cancelled"); });
}

class Touches : public UIKit {
  protected:
    Touches() {
        registerWitnesses();
        notes().clear();
        window_ = makeWindow();
        witness_ = create<Witness>();
    }
    void drag(CGPoint from, CGPoint to, double seconds) {
        TouchScreen& screen = TouchScreen::shared();
        screen.down(from);
        int steps = std::max(1, static_cast<int>(seconds / Clock::frame));
        for (int i = 1; i <= steps; ++i) {
            pass(Clock::frame);
            double part = static_cast<double>(i) / steps;
            screen.move({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        }
    }
    void tap(CGPoint place) {
        TouchScreen::shared().down(place);
        pass(0.05);
        TouchScreen::shared().up();
    }
    template <class T>
    Strong<T> recognizer(UIView view) {
        auto made = create<T, "initWithTarget:action:">(static_cast<const Object&>(witness_),
                                                        selector<"recognized:">());
        view.addGestureRecognizer(made);
        return made;
    }
    Strong<TouchView> addTouchView(CGRect frame) {
        auto view = create<TouchView, "initWithFrame:">(frame);
        window_.addSubview(view);
        return view;
    }
    using Notes = std::vector<std::string>;

    Strong<UIWindow> window_;
    Strong<Witness> witness_;
};

TEST_F(Touches, HitTestingSkipsHiddenFaintDisabledAndOutside) {
    auto view = addTouchView(rect(0, 0, 100, 100));
    auto inside = makeView(rect(90, 0, 50, 50));
    view.addSubview(inside);
    EXPECT_EQ(window_.hitTest({95, 10}, Object()), inside);
    EXPECT_EQ(window_.hitTest({110, 10}, Object()), window_);  // outside of the superview
    view.setAlpha(0.01);
    EXPECT_EQ(window_.hitTest({10, 10}, Object()), view);
    view.setAlpha(0.009);
    EXPECT_EQ(window_.hitTest({10, 10}, Object()), window_);
    view.setAlpha(1);
    view.send<"setUserInteractionEnabled:">(false);
    EXPECT_EQ(window_.hitTest({10, 10}, Object()), window_);
    view.send<"setUserInteractionEnabled:">(true);
    view.setHidden(true);
    EXPECT_EQ(window_.hitTest({10, 10}, Object()), window_);
}

TEST_F(Touches, HigherWindowsTakeThemFirst) {
    auto above = makeWindow(rect(0, 0, 50, 50));
    above.setWindowLevel(1000);
    auto low = addTouchView(rect(0, 0, 100, 100));
    tap({10, 10});
    EXPECT_EQ(notes(), Notes{});
    tap({80, 80});
    EXPECT_EQ(notes(), (Notes{"began", "ended"}));
}

TEST_F(Touches, TapIsRecognisedAndTheViewsTouchCancelled) {
    auto view = addTouchView(rect(0, 0, 100, 100));
    auto recognised = recognizer<UITapGestureRecognizer>(view);
    tap({10, 10});
    EXPECT_EQ(notes(), (Notes{"began", "state 3", "cancelled"}));
    EXPECT_EQ(recognised.state(), UIGestureRecognizer::possible);
}

TEST_F(Touches, PanBeginsAfterTenPoints) {
    auto view = addTouchView(rect(0, 0, 300, 300));
    auto pan = recognizer<UIPanGestureRecognizer>(view);
    TouchScreen& screen = TouchScreen::shared();
    screen.down({50, 50});
    screen.move({59, 50});
    EXPECT_EQ(pan.state(), UIGestureRecognizer::possible);
    screen.move({60, 50});
    EXPECT_EQ(pan.state(), UIGestureRecognizer::began);
    screen.move({80, 50});
    EXPECT_EQ(pan.state(), UIGestureRecognizer::changed);
    EXPECT_EQ(pan.locationInView(view), (CGPoint{80, 50}));
    screen.up();
    EXPECT_EQ(notes(), (Notes{"began", "state 1", "cancelled", "state 2", "state 3"}));
}

TEST_F(Touches, PanMeasuresPointsPerSecond) {
    auto view = addTouchView(rect(0, 0, 300, 300));
    auto pan = recognizer<UIPanGestureRecognizer>(view);
    drag({50, 50}, {50, 250}, 0.5);
    EXPECT_NEAR(pan.velocityInView(view).y, 400, 8);
    pan.setTranslation({0, 0}, view);
    EXPECT_EQ((pan.send<"translationInView:", CGPoint>(UIView(view.get()))), (CGPoint{0, 0}));
    EXPECT_NEAR(pan.velocityInView(view).y, 400, 8);  // the finger's speed outlives it
    TouchScreen::shared().up();
}

TEST_F(Touches, LongPressBeginsAfterHalfASecond) {
    auto view = addTouchView(rect(0, 0, 100, 100));
    auto press = recognizer<UILongPressGestureRecognizer>(view);
    TouchScreen::shared().down({10, 10});
    pass(0.49);
    EXPECT_EQ(press.state(), UIGestureRecognizer::possible);
    pass(0.02);
    EXPECT_EQ(press.state(), UIGestureRecognizer::began);
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), (Notes{"began", "state 1", "cancelled", "state 3"}));
}

TEST_F(Touches, SwipeGoesOnlyItsOwnWay) {
    auto view = addTouchView(rect(0, 0, 300, 300));
    auto swipe = recognizer<UISwipeGestureRecognizer>(view);
    swipe.setDirection(UISwipeGestureRecognizer::down);
    drag({50, 200}, {50, 100}, 0.1);
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), (Notes{"began", "ended"}));
    notes().clear();
    drag({50, 100}, {50, 200}, 0.1);
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), (Notes{"began", "state 3", "cancelled"}));
}

TEST_F(Touches, AStateThatMayNotFollowRaises) {
    auto pan = recognizer<UIPanGestureRecognizer>(window_);
    EXPECT_ANY_THROW(pan.send<"setState:">(static_cast<long>(UIGestureRecognizer::changed)));
}

TEST_F(Touches, ControlsMergeMasksAndReachSeventyPointsOut) {
    auto control = create<UIControl, "initWithFrame:">(rect(100, 100, 50, 50));
    window_.addSubview(control);
    for (unsigned long mask : {64UL, 128UL}) {
        control.send<"addTarget:action:forControlEvents:">(static_cast<const Object&>(witness_),
                                                           selector<"pressed">(), mask);
    }
    tap({110, 110});
    EXPECT_EQ(notes(), Notes{"pressed"});
    EXPECT_EQ((control.send<"allControlEvents", unsigned long>()), 192UL);
    control.send<"removeTarget:action:forControlEvents:">(static_cast<const Object&>(witness_),
                                                          selector<"pressed">(), 128UL);
    drag({110, 110}, {110, 219}, 0.1);  // 69 points below
    TouchScreen::shared().up();
    EXPECT_EQ(notes().size(), 2u);
    drag({110, 110}, {110, 222}, 0.1);  // 72 points below
    TouchScreen::shared().up();
    EXPECT_EQ(notes().size(), 2u);
}

class Scrolling : public Touches {
  protected:
    Scrolling() : view_(create<UIScrollView, "initWithFrame:">(rect(0, 0, 300, 300))) {
        window_.addSubview(view_);
        view_.setDelegate(witness_);
        view_.setPagingEnabled(true);
        view_.setContentSize({900, 300});
    }
    void put(CGPoint offset) { view_.send<"setContentOffset:">(offset); }
    Strong<UIScrollView> view_;
};

TEST_F(Scrolling, ASlowDragTurnsAPageAfterHalfOfIt) {
    drag({290, 100}, {110, 100}, 1);
    pass(0.2);  // at rest
    TouchScreen::shared().up();
    pass(1);
    EXPECT_EQ(view_.contentOffset(), (CGPoint{300, 0}));
    EXPECT_EQ(view_.bounds().origin, (CGPoint{300, 0}));
    EXPECT_EQ(notes(), (Notes{"willBeginDragging", "didEndDragging, more", "willBeginDecelerating",
                              "didEndDecelerating"}));
}

TEST_F(Scrolling, AFlickTurnsOnePage) {
    drag({200, 100}, {150, 100}, 0.08);
    TouchScreen::shared().up();
    pass(1);
    EXPECT_EQ(view_.contentOffset(), (CGPoint{300, 0}));
}

TEST_F(Scrolling, ContentThatFitsDoesNotScroll) {
    view_.setContentSize({300, 300});
    drag({290, 100}, {110, 100}, 0.2);
    TouchScreen::shared().up();
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
    EXPECT_EQ(notes(), Notes{});
}

TEST_F(Scrolling, SwitchedOffItDoesNotScroll) {
    view_.setScrollEnabled(false);
    drag({290, 100}, {110, 100}, 0.2);
    TouchScreen::shared().up();
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
}

TEST_F(Scrolling, AnimatedOffsetsEndWithTheirOwnCall) {
    view_.send<"setContentOffset:animated:">(CGPoint{300, 0}, true);
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
    pass(0.5);
    EXPECT_EQ(view_.contentOffset(), (CGPoint{300, 0}));
    EXPECT_EQ(notes(), Notes{"didEndScrollingAnimation"});
}

TEST_F(Scrolling, PageControlsClampAndTurnOnTap) {
    auto pages = create<UIPageControl, "initWithFrame:">(rect(0, 400, 200, 40));
    window_.addSubview(pages);
    pages.setNumberOfPages(2);
    pages.setCurrentPage(7);
    EXPECT_EQ((pages.send<"currentPage", long>()), 1);
    pages.send<"addTarget:action:forControlEvents:">(static_cast<const Object&>(witness_),
                                                     selector<"pressed">(), 4096UL);
    tap({20, 420});
    EXPECT_EQ((pages.send<"currentPage", long>()), 0);
    EXPECT_EQ(notes(), Notes{"pressed"});
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
}

// Observed on devices: ten points are lost, however fast the finger goes; a drag of 100 scrolls 90.
TEST_F(Scrolling, TheFirstTenPointsAreLost) {
    TouchScreen& screen = TouchScreen::shared();
    screen.down({250, 100});
    screen.move({241, 100});
    EXPECT_FALSE((view_.send<"isDragging", bool>()));
    screen.move({240, 100});
    EXPECT_TRUE((view_.send<"isDragging", bool>()));
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
    screen.move({150, 100});
    EXPECT_EQ(view_.contentOffset(), (CGPoint{90, 0}));
    screen.cancel();
    put({0, 0});
    screen.down({250, 100});
    screen.move({150, 100});
    EXPECT_NEAR(view_.contentOffset().x, 90, 1e-9);
    screen.cancel();
}

// Observed on devices: (1 - 1 / (0.55 d / size + 1)) size, with a size of 300 here.
TEST_F(Scrolling, BeyondTheEndAPullIsFollowedLessAndLess) {
    TouchScreen& screen = TouchScreen::shared();
    screen.down({50, 100});
    screen.move({250, 100});
    EXPECT_NEAR(view_.contentOffset().x, -77.5, 0.01);  // 190 points
    screen.cancel();
    pass(1);
    put({600, 0});
    screen.down({260, 100});
    screen.move({50, 100});
    EXPECT_NEAR(view_.contentOffset().x, 680.5, 0.02);  // 200 points
    screen.cancel();
}

// Observed on devices: the finger that stops it may leave again; the page then comes to rest.
TEST_F(Scrolling, AFingerStopsADeceleration) {
    drag({200, 100}, {150, 100}, 0.08);
    TouchScreen::shared().up();
    pass(0.1);
    ASSERT_TRUE((view_.send<"isDecelerating", bool>()));
    notes().clear();
    TouchScreen::shared().down({100, 100});
    EXPECT_FALSE((view_.send<"isDecelerating", bool>()));
    EXPECT_EQ(notes(), Notes{"didEndDecelerating"});
    const CGPoint stopped = view_.contentOffset();
    pass(0.2);
    EXPECT_EQ(view_.contentOffset(), stopped);
    TouchScreen::shared().up();
    pass(1);
    EXPECT_EQ(view_.contentOffset().x, stopped.x < 150 ? 0 : 300);
    EXPECT_EQ(notes(),
              (Notes{"didEndDecelerating", "willBeginDecelerating", "didEndDecelerating"}));
}

// As documented.
TEST_F(Scrolling, ItTracksFromTheTouchOn) {
    TouchScreen::shared().down({100, 100});
    EXPECT_TRUE((view_.send<"isTracking", bool>()));
    EXPECT_FALSE((view_.send<"isDragging", bool>()));
    TouchScreen::shared().up();
    EXPECT_FALSE((view_.send<"isTracking", bool>()));
}

// Observed on devices: what no longer reaches so far takes the offset along.
TEST_F(Scrolling, TheOffsetStaysWithinWhatShrinks) {
    put({600, 0});
    view_.setContentSize({700, 300});
    EXPECT_EQ(view_.contentOffset(), (CGPoint{400, 0}));
    view_.setFrame(rect(0, 0, 350, 300));
    EXPECT_EQ(view_.contentOffset(), (CGPoint{350, 0}));
    view_.setContentSize({900, 300});
    EXPECT_EQ(view_.contentOffset(), (CGPoint{350, 0}));
    view_.setContentSize({100, 300});
    EXPECT_EQ(view_.contentOffset(), (CGPoint{0, 0}));
}

// As documented.
TEST_F(Scrolling, ATapOnTheStatusBarScrollsToTheTopUnlessToldOtherwise) {
    EXPECT_TRUE((view_.send<"scrollsToTop", bool>()));
    view_.send<"setScrollsToTop:">(false);
    EXPECT_FALSE((view_.send<"scrollsToTop", bool>()));
}

TEST_F(Touches, APanTakesAnyNumberOfTouches) {
    auto pan = recognizer<UIPanGestureRecognizer>(window_);
    EXPECT_EQ((pan.send<"maximumNumberOfTouches", unsigned long>()),
              std::numeric_limits<unsigned long>::max());
    pan.send<"setMaximumNumberOfTouches:">(2UL);
    EXPECT_EQ((pan.send<"maximumNumberOfTouches", unsigned long>()), 2UL);
}

// As documented.
TEST_F(Touches, TheSameTargetAndActionIsThereOnce) {
    auto view = addTouchView(rect(0, 0, 100, 100));
    auto tapped = recognizer<UITapGestureRecognizer>(view);
    tapped.send<"addTarget:action:">(Object(witness_.get()), selector<"recognized:">());
    tap({10, 10});
    EXPECT_EQ(notes(), (Notes{"began", "state 3", "cancelled"}));
}

class TwoTaps : public Touches {
  protected:
    TwoTaps() : view_(addTouchView(rect(0, 0, 100, 100))) {
        twice_ = recognizer<UITapGestureRecognizer>(view_);
        twice_.send<"setNumberOfTapsRequired:">(2UL);
    }
    Strong<TouchView> view_;
    Strong<UITapGestureRecognizer> twice_;
};

// As documented: it waits until the other has failed, then recognises.
TEST_F(TwoTaps, OneTapWaitsForTheSecond) {
    auto once = recognizer<UITapGestureRecognizer>(view_);
    once.send<"requireGestureRecognizerToFail:">(UIGestureRecognizer(twice_.get()));
    tap({10, 10});
    pass(0.2);
    EXPECT_EQ(notes(), Notes{"began"});
    pass(0.2);
    EXPECT_EQ(notes(), (Notes{"began", "state 3", "cancelled"}));
    EXPECT_EQ(once.state(), UIGestureRecognizer::possible);
    notes().clear();
    tap({10, 10});
    pass(1);
    EXPECT_EQ(notes(), (Notes{"began", "state 3", "cancelled"}));  // and once more
}

TEST_F(TwoTaps, TwoTapsTakeTheOneThatWaits) {
    auto once = recognizer<UITapGestureRecognizer>(view_);
    once.send<"requireGestureRecognizerToFail:">(UIGestureRecognizer(twice_.get()));
    tap({10, 10});
    pass(0.1);
    tap({10, 10});
    pass(1);
    EXPECT_EQ(notes(), (Notes{"began", "began", "state 3", "cancelled", "cancelled"}));
    EXPECT_EQ(once.state(), UIGestureRecognizer::possible);
    EXPECT_EQ(twice_.state(), UIGestureRecognizer::possible);
}

TEST_F(Touches, APanWaitsForASwipeAndThenBegins) {
    auto view = addTouchView(rect(0, 0, 300, 300));
    auto swipe = recognizer<UISwipeGestureRecognizer>(view);
    swipe.setDirection(UISwipeGestureRecognizer::down);
    auto pan = recognizer<UIPanGestureRecognizer>(view);
    pan.send<"requireGestureRecognizerToFail:">(UIGestureRecognizer(swipe.get()));
    drag({50, 50}, {90, 50}, 0.4);
    EXPECT_EQ(pan.state(), UIGestureRecognizer::possible);
    drag({90, 50}, {150, 50}, 0.4);  // the swipe has failed after half a second
    EXPECT_EQ(pan.state(), UIGestureRecognizer::changed);
    TouchScreen::shared().up();
    EXPECT_EQ(pan.state(), UIGestureRecognizer::possible);
}

// As documented: the end of a touch is held back while a recogniser may still take it.
TEST_F(TwoTaps, HoldTheEndOfATouchBack) {
    tap({10, 10});
    EXPECT_EQ(notes(), Notes{"began"});
    pass(0.4);
    EXPECT_EQ(notes(), (Notes{"began", "ended"}));
    twice_.send<"setDelaysTouchesEnded:">(false);
    tap({10, 10});
    EXPECT_EQ(notes(), (Notes{"began", "ended", "began", "ended"}));
    pass(0.4);
    EXPECT_EQ(notes().size(), 4u);
}

// As documented: the view hears of a touch once the recogniser has failed, or never.
TEST_F(Touches, TheBeginningOfATouchIsHeldBackWhenAsked) {
    auto view = addTouchView(rect(0, 0, 300, 300));
    auto pan = recognizer<UIPanGestureRecognizer>(view);
    pan.send<"setDelaysTouchesBegan:">(true);
    TouchScreen::shared().down({50, 50});
    pass(0.3);
    EXPECT_EQ(notes(), Notes{});
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), (Notes{"began", "ended"}));
    notes().clear();
    TouchScreen::shared().down({50, 50});
    TouchScreen::shared().move({80, 50});
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), (Notes{"state 1", "state 3"}));
}

class Controls : public Touches {
  protected:
    static constexpr unsigned long inside = 64;
    template <class T>
    Strong<T> add(UIView parent, CGRect frame, unsigned long events) {
        auto control = create<T, "initWithFrame:">(frame);
        parent.addSubview(control);
        control.template send<"addTarget:action:forControlEvents:">(Object(witness_.get()),
                                                                    selector<"pressed">(), events);
        return control;
    }
    static bool isHighlighted(UIView control) { return control.send<"isHighlighted", bool>(); }
};

// As documented: one tap on a button or on the dots beats a recogniser of a view around it.
TEST_F(Controls, BeatATapRecogniserAroundThem) {
    auto around = makeView(rect(0, 0, 300, 300));
    window_.addSubview(around);
    auto tapped = recognizer<UITapGestureRecognizer>(around);
    auto button = add<UIButton>(around, rect(0, 0, 100, 100), inside);
    auto dots = add<UIPageControl>(around, rect(0, 100, 100, 40), 4096);
    dots.setNumberOfPages(3);
    tap({10, 10});
    tap({90, 120});
    EXPECT_EQ(notes(), (Notes{"pressed", "pressed"}));
    tap({200, 200});
    EXPECT_EQ(notes().back(), "state 3");
    notes().clear();
    auto own = recognizer<UITapGestureRecognizer>(button);
    tap({10, 10});
    EXPECT_EQ(notes(), Notes{"state 3"});  // its own recogniser goes before it
}

// As documented.
TEST_F(Controls, ThatAreDisabledNeitherTrackNorHighlight) {
    auto button = add<UIButton>(window_, rect(0, 0, 100, 100), inside);
    button.send<"setEnabled:">(false);
    TouchScreen::shared().down({10, 10});
    EXPECT_FALSE((button.send<"isTracking", bool>()));
    EXPECT_FALSE(isHighlighted(button));
    TouchScreen::shared().up();
    auto dots = add<UIPageControl>(window_, rect(0, 100, 100, 40), 4096);
    dots.setNumberOfPages(3);
    dots.send<"setEnabled:">(false);
    tap({90, 120});
    EXPECT_EQ((dots.send<"currentPage", long>()), 0);
    EXPECT_EQ(notes(), Notes{});
}

// Observed on iOS 11.4 and the first of 12.
TEST_F(Controls, DisabledWhilePressedStillSend) {
    auto button = add<UIButton>(window_, rect(0, 0, 100, 100), inside);
    TouchScreen::shared().down({10, 10});
    EXPECT_TRUE(isHighlighted(button));
    button.send<"setEnabled:">(false);
    TouchScreen::shared().up();
    EXPECT_EQ(notes(), Notes{"pressed"});
}

// Observed in other makers' suites: the border is crossed in addition to being on one side of it.
TEST_F(Controls, CrossingTheBorderIsADragOnItsFarSideToo) {
    constexpr unsigned long dragInside = 4, dragOutside = 8, dragEnter = 16, dragExit = 32;
    auto count = [&](unsigned long events, CGPoint from, CGPoint to) {
        auto control = add<UIControl>(window_, rect(0, 0, 50, 50), events);
        TouchScreen& screen = TouchScreen::shared();
        screen.down({10, 10});
        screen.move(from);
        notes().clear();
        screen.move(to);
        const auto sent = notes().size();
        screen.cancel();
        control.removeFromSuperview();
        return sent;
    };
    const CGPoint within{20, 20}, beyond{20, 130};
    EXPECT_EQ(count(dragExit, within, beyond), 1u);
    EXPECT_EQ(count(dragOutside, within, beyond), 1u);
    EXPECT_EQ(count(dragInside, within, beyond), 0u);
    EXPECT_EQ(count(dragEnter, beyond, within), 1u);
    EXPECT_EQ(count(dragInside, beyond, within), 1u);
    EXPECT_EQ(count(dragOutside, beyond, within), 0u);
}

}  // namespace

}  // namespace simulator::tests
