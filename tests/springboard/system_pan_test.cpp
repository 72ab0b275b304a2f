// The pans that the system drives itself answer in the view that is asked for, place and speed alike.
#include "simulator/springboard/gestures/system_gestures.hpp"

#include "simulator/hardware/display.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {

namespace {

class SystemPans : public UIKit {
  protected:
    SystemPans() {
        static bool registered = (registerSystemPan(), true);
        EXPECT_TRUE(registered);
        pan_ = makeSystemPan(UIView());
    }
    Strong<SBSystemPanGestureRecognizer> pan_;
};

TEST_F(SystemPans, AnswerInTheDisplayWithoutAView) {
    drive(pan_, {{100, 700}, {0, -300}, UIGestureRecognizer::began});
    EXPECT_EQ(pan_.locationInView(UIView()), (CGPoint{100, 700}));
    EXPECT_EQ(pan_.velocityInView(UIView()), (CGPoint{0, -300}));
    drive(pan_, {{130, 650}, {0, -300}, UIGestureRecognizer::changed});
    EXPECT_EQ((pan_.send<"translationInView:", CGPoint>(UIView())), (CGPoint{30, -50}));
}

// A view of twice the size, moved by (20, 40): half the distances, from its own corner.
TEST_F(SystemPans, AnswerInTheViewAsked) {
    auto window = makeWindow();
    auto view = makeView(rect(0, 0, 100, 100));
    view.setTransform({2, 0, 0, 2, 0, 0});
    view.setFrame(rect(20, 40, 200, 200));
    window.addSubview(view);
    drive(pan_, {{120, 60}, {0, 0}, UIGestureRecognizer::began});
    drive(pan_, {{120, 140}, {10, 80}, UIGestureRecognizer::changed});
    EXPECT_EQ(pan_.locationInView(view), (CGPoint{50, 50}));
    EXPECT_EQ(pan_.velocityInView(view), (CGPoint{5, 40}));
    EXPECT_EQ((pan_.send<"translationInView:", CGPoint>(UIView(view.get()))), (CGPoint{0, 40}));
    pan_.setTranslation({0, 10}, view);
    EXPECT_EQ((pan_.send<"translationInView:", CGPoint>(UIView())), (CGPoint{0, 20}));
}

// The home button at the right: the interface's up is the display's right.
TEST_F(SystemPans, SpeedsOfATurnedInterfaceAreThoseOfTheDisplay) {
    EXPECT_EQ(vectorToDisplay({0, -300}, orientationPortrait), (CGPoint{0, -300}));
    EXPECT_EQ(vectorToDisplay({0, -300}, orientationLandscapeRight), (CGPoint{300, 0}));
    EXPECT_EQ(vectorToDisplay({0, -300}, orientationLandscapeLeft), (CGPoint{-300, 0}));
    EXPECT_EQ(vectorToDisplay({5, -300}, orientationUpsideDown), (CGPoint{-5, 300}));
}

}  // namespace

}  // namespace simulator::tests
