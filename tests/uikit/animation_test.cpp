// Block animations: model values at once, the spring's curve, what adds up and what replaces, and
// with what each completion runs.
#include <optional>

#include "simulator/uikit/animation/animation.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {

namespace {

class Animations : public UIKit {
  protected:
    Animations() : window_(makeWindow()), view_(makeView(rect(0, 0, 100, 100))) {
        window_.addSubview(view_);
    }
    // Moves by the spring of 0.5 s, damping 0.6, velocity 0.3; the outcome tells how it finished.
    template <class Changes>
    std::shared_ptr<std::optional<bool>> spring(Changes changes, double delay = 0,
                                                double duration = 0.5) {
        auto outcome = std::make_shared<std::optional<bool>>();
        UIView::animateWithSpring(duration, delay, 0.6f, 0.3f, 0, block(changes),
                                  block<void(bool)>([outcome](bool yes) { *outcome = yes; }));
        return outcome;
    }
    double shownY() const { return presentation(view_).send<"frame", CGRect>().origin.y; }
    void moveTo(double y) { view_.setFrame(rect(0, y, 100, 100)); }

    Strong<UIWindow> window_;
    Strong<UIView> view_;
};

TEST_F(Animations, SpringHasThePlatformsConstants) {
    Spring shared(0.5, 0.6f, 0.3f);
    EXPECT_NEAR(shared.frequency(), 21.9902, 1e-3);
    EXPECT_NEAR(Spring(1.5, 0.6f, 0.3f).frequency(), 7.27654, 1e-4);
    struct Sample {
        double time, progress;
    };
    for (Sample s : {Sample{0.025, 0.125},
                     {0.05, 0.379},
                     {0.075, 0.644},
                     {0.1, 0.858},
                     {0.15, 1.072},
                     {0.2, 1.086},
                     {0.25, 1.037},
                     {0.3, 1.002},
                     {0.35, 0.991},
                     {0.4, 0.994}}) {
        EXPECT_NEAR(progress(shared, s.time, 0.5), s.progress, 6e-4) << s.time;
    }
    EXPECT_EQ(progress(shared, 0.5, 0.5), 1);
}

TEST_F(Animations, ModelIsFinalAtOnceAndThePresentationMoves) {
    auto outcome = spring([&] { moveTo(200); });
    EXPECT_EQ(view_.frame().origin.y, 200);
    EXPECT_EQ(shownY(), 0);
    pass(0.1);
    EXPECT_NEAR(shownY(), 200 * 0.858, 0.2);
    EXPECT_FALSE(outcome->has_value());
    pass(0.4);
    EXPECT_EQ(shownY(), 200);
    EXPECT_EQ(*outcome, true);
}

TEST_F(Animations, PositionsAddUpAndBothFinish) {
    auto first = spring([&] { moveTo(100); });
    pass(0.1);
    double before = shownY();
    auto second = spring([&] { moveTo(300); });
    EXPECT_NEAR(shownY(), before, 1e-9);  // no jump
    pass(0.1);
    // The first stands at 1.086 of 100 after 0.2 s, the second at 0.858 of 200 after 0.1 s.
    EXPECT_NEAR(shownY(), 100 * 1.086 + 200 * 0.858, 0.3);
    pass(0.5);
    EXPECT_EQ(*first, true);
    EXPECT_EQ(*second, true);
    EXPECT_EQ(shownY(), 300);
}

TEST_F(Animations, AlphaReplacesAndTheEarlierFinishesWithNo) {
    auto first = spring([&] { view_.setAlpha(0); });
    pass(0.1);
    auto second = spring([&] { view_.setAlpha(1); });
    pass(0);
    EXPECT_EQ(*first, false);
    pass(0.5);
    EXPECT_EQ(*second, true);
}

TEST_F(Animations, ABlockThatChangesNothingCompletesInTheNextTurn) {
    auto outcome = spring([] {});
    EXPECT_FALSE(outcome->has_value());
    pass(0);
    EXPECT_EQ(*outcome, true);
}

TEST_F(Animations, NoDurationCompletesInTheNextTurn) {
    auto outcome = spring([&] { moveTo(50); }, 0, 0);
    EXPECT_EQ(shownY(), 50);
    EXPECT_FALSE(outcome->has_value());
    pass(0);
    EXPECT_EQ(*outcome, true);
}

TEST_F(Animations, DelayHoldsTheOldPicture) {
    auto outcome = spring([&] { moveTo(100); }, 0.2);
    pass(0.2);
    EXPECT_NEAR(shownY(), 0, 1e-6);
    pass(0.5);
    EXPECT_EQ(*outcome, true);
    EXPECT_EQ(shownY(), 100);
}

TEST_F(Animations, LeavingTheWindowFinishesWithNo) {
    auto outcome = spring([&] { moveTo(100); });
    pass(0.1);
    view_.removeFromSuperview();
    pass(0);
    EXPECT_EQ(*outcome, false);
}

TEST_F(Animations, InterruptRunsTheCompletionsAtOnce) {
    auto outcome = spring([&] { moveTo(100); });
    interrupt(view_);
    EXPECT_EQ(*outcome, false);
    EXPECT_EQ(shownY(), 100);
}

TEST_F(Animations, CornerRadiusIsAnimated) {
    spring([&] { view_.layer().setCornerRadius(20); });
    pass(0.1);
    double radius = presentation(view_).send<"layer", CALayer>().cornerRadius();
    EXPECT_NEAR(radius, 20 * 0.858, 0.05);
    EXPECT_EQ(view_.layer().cornerRadius(), 20);
}

TEST_F(Animations, WithoutAnimationSetsAtOnce) {
    spring([&] {
        auto still = block([&] { moveTo(70); });
        sendClass<UIView, "performWithoutAnimation:">(BlockRef<void()>(still));
    });
    EXPECT_EQ(shownY(), 70);
}

TEST_F(Animations, AnimatedViewsRefuseNewTouchesUnlessAllowed) {
    spring([&] { moveTo(10); });
    EXPECT_EQ(window_.hitTest({50, 50}, Object()), window_);
    pass(0.5);
    EXPECT_EQ(window_.hitTest({50, 50}, Object()), view_);
    auto changes = block([&] { moveTo(0); });
    UIView::animateWithSpring(0.5, 0, 0.6f, 0.3f, allowUserInteraction, changes,
                              UIView::Completion());
    EXPECT_EQ(window_.hitTest({50, 50}, Object()), view_);
}

// As documented: blocks inside do not animate either.
TEST_F(Animations, WithoutAnimationCoversWhatIsInside) {
    std::shared_ptr<std::optional<bool>> outcome;
    bool enabled = true;
    auto changes = block([&] {
        enabled = sendClass<UIView, "areAnimationsEnabled", bool>();
        outcome = spring([&] { moveTo(200); });
    });
    sendClass<UIView, "performWithoutAnimation:">(BlockRef<void()>(changes));
    EXPECT_FALSE(enabled);
    EXPECT_EQ(shownY(), 200);
    EXPECT_TRUE((sendClass<UIView, "areAnimationsEnabled", bool>()));
    pass(Clock::frame);
    EXPECT_EQ(*outcome, true);
}

// As documented: the model of what is on screen is the layer that it was taken from.
TEST_F(Animations, ThePresentationKnowsItsModel) {
    CALayer shown = view_.layer().send<"presentationLayer", CALayer>();
    EXPECT_NE(shown, view_.layer());
    EXPECT_EQ((shown.send<"modelLayer", CALayer>()), view_.layer());
    EXPECT_EQ((view_.layer().send<"modelLayer", CALayer>()), view_.layer());
}

}  // namespace

}  // namespace simulator::tests
