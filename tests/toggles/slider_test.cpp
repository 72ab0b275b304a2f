// The fill slider by itself: its bar, its arithmetic, and a finger on it.
#include "simulator/runtime/journal.hpp"
#include "tests/toggles/slider_phone.hpp"

namespace vantori::tests {
namespace {

using Slider = SliderPhone;

UIColor ground(UIView view) { return view.send<"backgroundColor", UIColor>(); }

struct Shown {
    double width;
    float value;
    double fill;  // minus the width, times one less the value
};

class Shows : public SliderPhone, public testing::WithParamInterface<Shown> {};

TEST_P(Shows, AValueByThePlaceOfTheFill) {
    boot();
    const auto [width, value, expected] = GetParam();
    auto bar = slider(rect(0, 0, width, 50));
    bar.adjustSlider(value);
    EXPECT_EQ(fill(bar), expected);
    EXPECT_EQ(bar.frontView().frame().size, (CGSize{width, 50}));
    bar.adjustSlider(0.75f);
    bar.adjustSlider(value);
    EXPECT_EQ(fill(bar), expected);
}

// Beyond the ends nothing is clamped.
INSTANTIATE_TEST_SUITE_P(Values, Shows,
                         testing::Values(Shown{300, 0.5f, -150}, Shown{300, 0, -300},
                                         Shown{300, 1, 0}, Shown{300, 1.5f, 150},
                                         Shown{300, -0.5f, -450}, Shown{120, 0.25f, -90},
                                         Shown{120, 0.75f, -30}));

TEST_F(Slider, StartsFull) {
    boot();
    auto bar = slider(rect(10, 20, 120, 50));
    EXPECT_EQ(fill(bar), 0);
    EXPECT_EQ(bar.frontView().frame(), (rect(0, 0, 120, 50)));
    EXPECT_EQ((bar.send<"currentValue", float>()), 0);
}

TEST_F(Slider, IsARoundedBarOfTwoMaterials) {
    boot();
    auto bar = slider(rect(0, 0, 120, 50));
    const NSArray parts = bar.subviews();
    ASSERT_EQ(parts.count(), 2);
    EXPECT_EQ(parts.at<UIView>(0), bar.containerView());
    EXPECT_EQ(parts.at<UIView>(1), bar.frontView());
    for (UIView part : {bar.containerView(), bar.frontView()}) {
        EXPECT_TRUE(part.isKindOfClass(objc_getClass("MTMaterialView")));
        EXPECT_EQ(part.alpha(), 1);
        EXPECT_EQ((part.send<"recipe", long>()), 4);
    }
    EXPECT_EQ((bar.containerView().send<"configuration", long>()), 2);
    EXPECT_EQ((bar.frontView().send<"configuration", long>()), 3);
    EXPECT_EQ(bar.layer().cornerRadius(), 20);
    EXPECT_TRUE((bar.layer().send<"continuousCorners", bool>()));
    EXPECT_TRUE(bar.layer().masksToBounds());
}

TEST_F(Slider, IsPlainBeforeTheMaterials) {
    phone_->system("12.4");
    boot();
    auto bar = slider(rect(0, 0, 120, 50));
    EXPECT_EQ(object_getClass(bar.containerView().get()), objc_getClass("UIView"));
    EXPECT_EQ(object_getClass(bar.frontView().get()), objc_getClass("UIView"));
    EXPECT_NEAR(bar.containerView().alpha(), 0.35, 1e-7);
    EXPECT_NEAR(bar.frontView().alpha(), 0.7, 1e-7);
    EXPECT_TRUE((ground(bar.containerView()).send<"isEqual:", bool>(UIColor::black())));
    EXPECT_TRUE((ground(bar.frontView()).send<"isEqual:", bool>(UIColor::white())));
    EXPECT_EQ(called("MTMaterialView", "materialViewWithRecipe:configuration:"), 0);
    bar.adjustSlider(0.5f);
    EXPECT_EQ(fill(bar), -60);
}

TEST_F(Slider, HasAPanThatIsOnNoView) {
    boot();
    auto bar = slider(rect(0, 0, 120, 50));
    auto pan = bar.send<"dragGestureRecognizer", UIPanGestureRecognizer>();
    EXPECT_TRUE(pan.isKindOfClass(objc_getClass("UIPanGestureRecognizer")));
    EXPECT_FALSE(pan.view());
    EXPECT_EQ((bar.send<"gestureRecognizers", NSArray>().count()), 0);
}

TEST_F(Slider, AFrameLeavesTheFillWhereItWas) {
    boot();
    auto bar = slider(rect(0, 0, 300, 50));
    bar.adjustSlider(0.75f);  // 75 points to the left
    bar.setFrame(rect(30, 40, 120, 60));
    EXPECT_EQ(bar.frontView().frame(), (rect(-75, 0, 120, 60)));
    EXPECT_EQ(bar.frontView().bounds(), (rect(0, 0, 120, 60)));
    EXPECT_EQ(bar.frontView().center(), (CGPoint{60, 30}));
    EXPECT_EQ(bar.frontView().transform().tx, -75);
    EXPECT_EQ(bar.containerView().frame(), (rect(0, 0, 120, 60)));
}

TEST_F(Slider, AValueAfterAFrameIsOfTheNewWidth) {
    boot();
    auto bar = slider(rect(0, 0, 0, 0));
    bar.setFrame(rect(234, 25, 120, 50));
    bar.adjustSlider(0.75f);
    EXPECT_EQ(bar.frontView().frame(), (rect(-30, 0, 120, 50)));
    bar.setFrame(rect(100, 25, 120, 50));
    EXPECT_EQ(bar.frontView().frame(), (rect(-30, 0, 120, 50)));
}

TEST_F(Slider, AValueOnABarWithoutWidthIsLost) {
    boot();
    auto bar = slider(rect(0, 0, 0, 0));
    bar.adjustSlider(0.25f);
    bar.setFrame(rect(0, 0, 120, 50));
    EXPECT_EQ(fill(bar), 0);
}

TEST_F(Slider, KeepsCopiesOfItsColours) {
    boot();
    auto bar = slider(rect(0, 0, 120, 50));
    const UIView front = bar.frontView(), back = bar.containerView();
    bar.send<"setFrontColor:">(UIColor::white());
    bar.send<"setBackColor:">(UIColor::black());
    EXPECT_TRUE((bar.send<"frontColor", UIColor>().send<"isEqual:", bool>(UIColor::white())));
    EXPECT_TRUE((bar.send<"backColor", UIColor>().send<"isEqual:", bool>(UIColor::black())));
    EXPECT_TRUE((ground(front).send<"isEqual:", bool>(UIColor::white())));
    EXPECT_TRUE((ground(back).send<"isEqual:", bool>(UIColor::black())));
    EXPECT_EQ(bar.frontView(), front);
    EXPECT_EQ(bar.containerView(), back);
    EXPECT_EQ(called("UIColor", "copyWithZone:"), 2);
}

TEST_F(Slider, TintsALayerAndAllBelowIt) {
    boot();
    auto bar = slider(rect(0, 0, 120, 50));
    auto whole = create<CALayer>(), part = create<CALayer>(), grain = create<CALayer>(),
         other = create<CALayer>();
    whole.send<"addSublayer:">(part);
    part.send<"addSublayer:">(grain);
    const UIColor colour = UIColor::rgba(0.2, 0.4, 0.6, 1);
    bar.updateGlyphColor(colour, whole);
    bar.updateGlyphColor(colour, CALayer());
    for (CALayer layer : {CALayer(whole), CALayer(part), CALayer(grain)}) {
        auto color = sendClass<UIColor, "colorWithCGColor:", UIColor>(
            layer.send<"contentsMultiplyColor", CGColorRef>());
        EXPECT_TRUE((color.send<"isEqual:", bool>(colour)));
    }
    EXPECT_EQ((other.send<"contentsMultiplyColor", CGColorRef>()), nullptr);
    expectUnhurt();
}

TEST_F(Slider, OneThatIsGoneHearsNoMore) {
    boot();
    {
        AutoreleasePool pool;
        auto volume = slider<VNTVolumeSlider>(rect(0, 0, 120, 50));
        auto brightness = slider<VNTBrightnessSlider>(rect(0, 0, 120, 50));
    }
    phone_->post("should-refresh-value");
    phone_->volume(0.2);
    phone_->brightness(0.2);
    expectUnhurt();
}

// A finger on a slider that is grown to 1.15: 23 points of the screen are 20 of the slider.

class Dragged : public SliderPhone {
  protected:
    void open() {
        boot();
        openToolbar();
    }
    void move(double x) { phone_->touchMove(x, onBrightness().y, 0); }
};

TEST_F(Dragged, MovesTheFillByAsMuchAsTheFinger) {
    open();
    const CGPoint start = onBrightness();
    touch(start);
    EXPECT_EQ(shown(brightnessSlider()), 0.5);  // not to the finger
    phone_->wait(0.2);
    move(start.x + 23);
    EXPECT_NEAR(fill(brightnessSlider()), -60 + 20, 1e-5);
    EXPECT_NEAR(brightnessGiven(), 80.0 / 120, 1e-6);
    move(start.x);
    EXPECT_NEAR(fill(brightnessSlider()), -60, 1e-5);
    phone_->touchUp();
    EXPECT_EQ(called("SBBrightnessController", "_setBrightnessLevel:showHUD:"), 2);
}

TEST_F(Dragged, EndsAtExactlyEmptyAndFull) {
    open();
    touch(onBrightness());
    phone_->touchMove(10, onBrightness().y, 0.3);
    EXPECT_EQ(brightnessGiven(), 0.0);
    EXPECT_EQ(fill(brightnessSlider()), -120);
    phone_->touchMove(370, onBrightness().y, 0.3);
    EXPECT_EQ(brightnessGiven(), 1.0);
    EXPECT_EQ(fill(brightnessSlider()), 0);
    // From an odd place, in one leap.
    move(350.7);
    move(-900);
    EXPECT_EQ(brightnessGiven(), 0.0);
    move(900);
    EXPECT_EQ(brightnessGiven(), 1.0);
    phone_->touchUp();
}

TEST_F(Dragged, DoesNotDriftOverManySmallMoves) {
    open();
    touch(onBrightness());
    for (int round = 0; round < 20; ++round) {
        for (int i = 1; i <= 50; ++i) move(onBrightness().x + 0.37 * i);
        for (int i = 49; i >= 0; --i) move(onBrightness().x + 0.37 * i);
    }
    // 2000 moves, each of which the system keeps as a 32-bit float: a twentieth of a point at most.
    EXPECT_NEAR(fill(brightnessSlider()), -60, 0.005);
    phone_->touchUp();
}

TEST_F(Dragged, AnIdleBarDoesNotDriftAtAll) {
    boot();
    auto bar = slider(rect(0, 600, 300, 50));
    toolbar().view().addSubview(bar);
    bar.adjustSlider(0.5f);
    for (int i = 0; i < 1000; ++i) {
        bar.adjustSlider(0.1f);
        bar.adjustSlider(0.5f);
    }
    EXPECT_NEAR(fill(bar), -150, 1e-9);
}

TEST_F(Dragged, GrowsUnderTheFingerAndTapsOnce) {
    open();
    touch(onBrightness());
    EXPECT_EQ(brightnessSlider().transform(), (CGAffineTransform{1.15, 0, 0, 1.15, 0, 0}));
    EXPECT_EQ(phone_->haptics(0), 0);
    phone_->wait(0.16);
    EXPECT_EQ(phone_->haptics(0), 1);
    phone_->touchUp();
    EXPECT_EQ(brightnessSlider().transform(), identityTransform);
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(0), 1);
    EXPECT_EQ(phone_->haptics(1), 0);
}

TEST_F(Dragged, GrowsAtOnceAndWithoutOptions) {
    open();
    phone_->clear();
    touch(onBrightness());
    const auto grown = simulator::Journal::last(
        "UIView", "animateWithDuration:delay:options:animations:completion:");
    ASSERT_TRUE(grown);
    EXPECT_NEAR(std::get<double>(grown->at(0)), 0.15, 1e-6);
    EXPECT_EQ(std::get<double>(grown->at(1)), 0);
    EXPECT_EQ(std::get<long>(grown->at(2)), 0);
}

TEST_F(Dragged, NoTapWhenTheGrowingIsInterrupted) {
    open();
    touch(onBrightness());
    phone_->wait(0.05);
    phone_->interrupt(brightnessSlider().get());
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(0), 0);
    phone_->touchUp();
}

TEST_F(Dragged, ATouchWithoutAMoveChangesNothing) {
    open();
    const CGRect frame = brightnessSlider().frame();
    touch(onBrightness());
    phone_->wait(0.05);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(posted("should-lock-ScrollView"), 1);
    EXPECT_EQ(posted("should-unlock-ScrollView"), 1);
    EXPECT_EQ(phone_->haptics(0), 1);
    EXPECT_EQ(called("SBBrightnessController", "_setBrightnessLevel:showHUD:"), 0);
    EXPECT_EQ(brightnessSlider().frame(), frame);
    EXPECT_EQ(shown(brightnessSlider()), 0.5);
}

TEST_F(Dragged, ShrinksInFifteenHundredths) {
    open();
    touch(onBrightness());
    phone_->wait(0.3);
    phone_->touchUp();
    auto onScreen = [&] {
        return Object(phone_->presentation(brightnessSlider().get()))
            .send<"transform", CGAffineTransform>()
            .a;
    };
    phone_->wait(0.075);
    EXPECT_NEAR(onScreen(), 1.075, 0.02);  // half-way, by the symmetry of the curve
    phone_->wait(0.08);
    EXPECT_EQ(onScreen(), 1);
}

// The toolbar around it.

TEST_F(Dragged, NeitherMovesTheToolbar) {
    open();
    const double top = toolbar().view().frame().origin.y;
    touch(onBrightness());
    EXPECT_FALSE((toolbar().vantoriScrollView().send<"isScrollEnabled", bool>()));
    phone_->touchMove(200, 300, 0.3);
    phone_->touchMove(300, 800, 0.3);
    phone_->wait(0.2);
    EXPECT_EQ(toolbar().view().frame().origin.y, top);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(toolbar().view().frame().origin.y, top);
    EXPECT_TRUE(toolbar().isEnabled());
}

TEST_F(Dragged, TheToolbarMovesRightAfter) {
    open();
    touch(onBrightness());
    phone_->touchMove(200, 300, 0.3);
    phone_->touchUp();
    EXPECT_TRUE((toolbar().vantoriScrollView().send<"isScrollEnabled", bool>()));
    phone_->wait(0.3);
    const double top = toolbar().view().frame().origin.y;
    phone_->touchDown(187, top + 8);
    phone_->touchMove(187, top + 103, 0.3);
    phone_->wait(1);
    EXPECT_NEAR(toolbar().view().frame().origin.y, top + 103, 0.01);
    phone_->touchUp();
}

class Paged : public SliderPhone {
  protected:
    // The page of the brightness in the flat toolbar.
    void open() {
        set("layoutDirection", 1);
        boot();
        openToolbar();
        pages().send<"setContentOffset:">(CGPoint{left(), 0});
    }
    static double left() { return brightnessPage().frame().origin.x; }
    static UIScrollView pages() { return toolbar().vantoriScrollView(); }
    void swipeBeside() {
        const double above = onBrightness().y - 42;
        phone_->touchDown(300, above);
        phone_->touchMove(60, above, 0.2);
        phone_->touchUp();
        phone_->wait(2);
    }
};

TEST_F(Paged, StaysWhileItsSliderIsDragged) {
    open();
    const CGPoint start = onBrightness();
    touch(start);
    phone_->touchMove(40, start.y, 0.3);
    EXPECT_EQ(pages().contentOffset(), (CGPoint{left(), 0}));
    EXPECT_EQ(shown(brightnessSlider()), 0);
    phone_->touchMove(374, start.y, 0.3);
    EXPECT_EQ(pages().contentOffset(), (CGPoint{left(), 0}));
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(pages().contentOffset(), (CGPoint{left(), 0}));
    swipeBeside();
    EXPECT_EQ(pages().contentOffset(), (CGPoint{left() + 375, 0}));
}

TEST_F(Paged, PagesAgainAfterACancelledTouch) {
    open();
    const CGPoint start = onBrightness();
    touch(start);
    phone_->touchMove(start.x - 20, start.y, 0.1);
    EXPECT_FALSE((pages().send<"isScrollEnabled", bool>()));
    phone_->touchCancel();
    EXPECT_EQ(posted("should-unlock-ScrollView"), 1);
    EXPECT_TRUE((pages().send<"isScrollEnabled", bool>()));
    EXPECT_EQ(brightnessSlider().transform(), identityTransform);
    phone_->wait(0.3);
    swipeBeside();
    EXPECT_EQ(pages().contentOffset(), (CGPoint{left() + 375, 0}));
}

TEST_F(Paged, ATouchOnTheGlyphIsOnTheSlider) {
    open();
    const CGPoint middle = onBrightness();
    touch({middle.x - 30, middle.y});  // the glyph lies in the left half
    EXPECT_FALSE((pages().send<"isScrollEnabled", bool>()));
    EXPECT_EQ(posted("should-lock-ScrollView"), 1);
    phone_->touchUp();
}

TEST_F(Paged, BothToolbarsAreLocked) {
    open();
    touch(onBrightness());
    UIScrollView other = VNTToolBarController::shared().vantoriScrollView();
    EXPECT_FALSE((other.send<"isScrollEnabled", bool>()));
    phone_->touchUp();
    EXPECT_TRUE((other.send<"isScrollEnabled", bool>()));
}

}  // namespace
}  // namespace vantori::tests
