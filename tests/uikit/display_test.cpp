// What the canvas gets to see: the scene of the windows, labels, images' colours, alerts, the tree.
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::testing {

namespace {

class Display : public UIKit {};

TEST_F(Display, ScenesHoldTheVisibleWindowsByLevel) {
    auto high = makeWindow();
    high.setWindowLevel(1000);
    auto low = makeWindow();
    auto hidden = create<UIWindow, "initWithFrame:">(rect(0, 0, 10, 10));
    low.setBackgroundColor(UIColor::white());
    low.layer().setCornerRadius(12);
    auto scene = sceneOfWindows({375, 812});
    ASSERT_EQ(scene.children.size(), 2u);
    EXPECT_EQ(scene.children[0].cornerRadius, 12);
    ASSERT_TRUE(scene.children[0].background.has_value());
    EXPECT_EQ(scene.children[0].background->red, 1);
    EXPECT_EQ(scene.children[0].name, "UIWindow");
}

TEST_F(Display, LabelsCarryTheirText) {
    auto window = makeWindow();
    auto label = create<UILabel>();
    label.send<"setText:">("Vantori"_ns);
    label.send<"sizeToFit">();
    window.addSubview(label);
    auto scene = sceneOf(layerOf(label));
    const auto* shown = std::get_if<rendering::Text>(&scene.content);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->text, "Vantori");
    EXPECT_GT(label.frame().size.width, 20);
    EXPECT_FALSE((label.send<"isUserInteractionEnabled", bool>()));
}

std::optional<CGRect> nowhere(UIView) { return std::nullopt; }
std::optional<CGRect> halfAcross(UIView view) {
    const CGRect frame = view.frame();
    return rect(frame.origin.x / 2, frame.origin.y / 2, frame.size.width, frame.size.height);
}

TEST_F(Display, TreesSayWhereAViewIsOnScreenAndWhatItSays) {
    auto label = create<UILabel>();
    label.setFrame(rect(8, 6, 30, 20));
    label.send<"setText:">("He said \"go\"\n\\o/"_ns);
    EXPECT_EQ(viewTree(label, halfAcross),
              "UILabel {8, 6, 30, 20} at {4, 3, 30, 20} \"He said \\\"go\\\"\\n\\\\o/\" alpha 1\n");
}

TEST_F(Display, TreesNameClassFrameAndWhatDiffers) {
    auto view = makeView(rect(1, 2, 30, 40.5));
    auto inner = makeView(rect(0, 0, 5, 5));
    view.addSubview(inner);
    inner.setHidden(true);
    inner.layer().setCornerRadius(3);
    EXPECT_EQ(viewTree(view, nowhere),
              "UIView {1, 2, 30, 40.5} alpha 1\n"
              "  UIView {0, 0, 5, 5} alpha 1 hidden radius 3\n");
}

TEST_F(Display, SystemColoursHaveADarkForm) {
    auto blue = sendClass<UIColor, "systemBlueColor", UIColor>();
    EXPECT_EQ(rgbaOf(blue, 1), (Rgba{0, 122 / 255.0, 1, 1}));
    EXPECT_EQ(rgbaOf(blue, 2), (Rgba{10 / 255.0, 132 / 255.0, 1, 1}));
    EXPECT_TRUE((UIColor::white().send<"isEqual:", bool>(UIColor::rgba(1, 1, 1, 1))));
}

TEST_F(Display, AlertsCoverTheScreenUntilAButtonIsPressed) {
    auto window = makeWindow();
    auto alert = create<UIAlertView>();
    alert.send<"setTitle:">("Restart"_ns);
    alert.send<"addButtonWithTitle:", long>("OK"_ns);
    alert.send<"show">();
    EXPECT_EQ(windowsBackToFront().size(), 2u);
    auto button = UIView(alert.subviews().last().get());
    CGPoint middle = button.send<"convertPoint:toView:", CGPoint>(CGPoint{20, 20}, UIView());
    TouchScreen::shared().down(middle);
    TouchScreen::shared().up();
    EXPECT_EQ(windowsBackToFront().size(), 1u);
}

}  // namespace

}  // namespace simulator::testing
