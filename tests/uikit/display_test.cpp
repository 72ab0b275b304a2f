// What the canvas gets to see: the scene of the windows, labels, images' colours, alerts, the tree.
#include <unistd.h>

#include <filesystem>

#include "simulator/rendering/png.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {

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

// As observed in other makers' suites: the colour space is part of a colour.
TEST_F(Display, AGreyIsNotTheSameColourInRedGreenAndBlue) {
    auto equal = [](UIColor a, UIColor b) { return a.send<"isEqual:", bool>(b); };
    auto grey = [](double white, double alpha) {
        return sendClass<UIColor, "colorWithWhite:alpha:", UIColor>(white, alpha);
    };
    EXPECT_TRUE(equal(UIColor::white(), grey(1, 1)));
    EXPECT_FALSE(equal(UIColor::white(), UIColor::rgba(1, 1, 1, 1)));
    EXPECT_TRUE(equal(sendClass<UIColor, "clearColor", UIColor>(), grey(0, 0)));
    EXPECT_TRUE(equal(sendClass<UIColor, "grayColor", UIColor>(), grey(0.5, 1)));
    EXPECT_TRUE(equal(UIColor::white(),
                      sendClass<UIColor, "colorWithCGColor:", UIColor>(cgColor(UIColor::white()))));
    auto view = makeView(rect(0, 0, 1, 1));
    view.setBackgroundColor(UIColor::white());
    CGColorRef shown = view.layer().send<"backgroundColor", CGColorRef>();
    EXPECT_TRUE(equal(colorOf(shown), UIColor::white()));
    double white = 0;
    EXPECT_TRUE((UIColor::white().send<"getWhite:alpha:", bool>(&white, nullptr)));
    EXPECT_EQ(white, 1);
}

// As documented: an image has the scale of its file, data have 1.
TEST_F(Display, ImagesHaveAScaleOfTheirOwn) {
    const auto folder = std::filesystem::temp_directory_path() /
                        ("vantori-image-scale-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const rendering::Surface pixels(12, 6);
    for (const char* name : {"plain.png", "twice@2x.png"}) {
        ASSERT_EQ(rendering::writePng(pixels, folder / name), std::nullopt);
    }
    auto image = [&](const char* name) {
        return sendClass<UIImage, "imageWithContentsOfFile:", UIImage>(string(folder / name));
    };
    EXPECT_EQ((image("plain.png").send<"scale", double>()), 1);
    EXPECT_EQ((image("plain.png").send<"size", CGSize>()), (CGSize{12, 6}));
    EXPECT_EQ((image("twice@2x.png").send<"scale", double>()), 2);
    EXPECT_EQ((image("twice.png").send<"size", CGSize>()), (CGSize{6, 3}));
    UIImage asTemplate = image("twice.png").send<"imageWithRenderingMode:", UIImage>(2L);
    EXPECT_EQ((asTemplate.send<"scale", double>()), 2);
    const auto bytes = rendering::encodePng(pixels);
    Object data = Object(classObject(objc_getClass("NSData")))
                      .send<"dataWithBytes:length:", Object>(static_cast<const void*>(bytes.data()),
                                                             bytes.size());
    EXPECT_EQ((sendClass<UIImage, "imageWithData:", UIImage>(data).send<"scale", double>()), 1);
    std::filesystem::remove_all(folder);
}

// As documented: 1242 × 2208 pixels are drawn and shown on a panel of 1080 × 1920.
TEST_F(Display, PlusModelsHaveFewerPixelsThanTheyDraw) {
    const Screen before = screen();
    screen().portrait = {414, 736};
    screen().scale = 3;
    EXPECT_EQ((UIScreen::mainScreen().send<"nativeBounds", CGRect>()), rect(0, 0, 1080, 1920));
    EXPECT_NEAR((UIScreen::mainScreen().send<"nativeScale", double>()), 2.608, 0.001);
    EXPECT_EQ((UIScreen::mainScreen().send<"scale", double>()), 3);
    screen().portrait = {375, 812};
    EXPECT_EQ((UIScreen::mainScreen().send<"nativeBounds", CGRect>()), rect(0, 0, 1125, 2436));
    EXPECT_EQ((UIScreen::mainScreen().send<"nativeScale", double>()), 3);
    screen() = before;
}

// As documented.
TEST_F(Display, ViewsAreOpaqueUnlessToldOtherwise) {
    auto view = makeView(rect(0, 0, 1, 1));
    EXPECT_TRUE((view.send<"isOpaque", bool>()));
    view.send<"setOpaque:">(false);
    EXPECT_FALSE((view.send<"isOpaque", bool>()));
}

// Records in values come back as they were stored, whatever Foundation calls them.
TEST_F(Display, ValuesReturnWhatWasStored) {
    const CGPoint point{1.5, -2};
    const CGSize size{3, 4.25};
    const CGRect box = rect(1, 2, 3, 4);
    const CGAffineTransform transform{1, 2, 3, 4, 5, 6};
    EXPECT_EQ(
        (sendClass<NSValue, "valueWithCGPoint:", NSValue>(point).send<"CGPointValue", CGPoint>()),
        point);
    EXPECT_EQ((sendClass<NSValue, "valueWithCGSize:", NSValue>(size).send<"CGSizeValue", CGSize>()),
              size);
    EXPECT_EQ((sendClass<NSValue, "valueWithCGRect:", NSValue>(box).send<"CGRectValue", CGRect>()),
              box);
    EXPECT_EQ((sendClass<NSValue, "valueWithCGAffineTransform:", NSValue>(transform)
                   .send<"CGAffineTransformValue", CGAffineTransform>()),
              transform);
}

// As observed in other makers' suites: a layer without a view that lies above stays above.
TEST_F(Display, AboveASubviewIsRightAboveItsLayer) {
    auto outer = makeView(rect(0, 0, 10, 10));
    auto lower = makeView(rect(0, 0, 5, 5)), upper = makeView(rect(0, 0, 5, 5));
    outer.addSubview(lower);
    auto bare = create<CALayer>();
    outer.layer().send<"addSublayer:">(CALayer(bare.get()));
    outer.send<"insertSubview:aboveSubview:">(UIView(upper.get()), UIView(lower.get()));
    NSArray layers = outer.layer().send<"sublayers", NSArray>();
    ASSERT_EQ(layers.count(), 3u);
    EXPECT_EQ(layers.at(0), Object(lower.layer()));
    EXPECT_EQ(layers.at(1), Object(upper.layer()));
    EXPECT_EQ(layers.at(2), Object(bare.get()));
}

}  // namespace

}  // namespace simulator::tests
