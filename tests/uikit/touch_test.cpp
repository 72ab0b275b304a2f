// Touches: who is hit, how recognisers and controls see them, how scroll views drag and page.
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/view/control/control.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::testing {

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

}  // namespace

}  // namespace simulator::testing
