// The base of every toggle: how it is made, what a tap does, how its round button is drawn.
#include "toggles/toggle.hpp"

#include "tests/toggles/toggle_phone.hpp"

namespace vantori::tests {
namespace {

class ToggleBase : public TogglePhone {
  protected:
    Toggle packageToggle() {
        return makePackageToggle("VNTDailyToggleViewController", "yes", "no");
    }
    Toggle imageToggle() { return makeImageToggle("VNTDailyToggleViewController", "yes", "no"); }
    static NSArray subviewsOf(Toggle toggle) { return toggle.toggleButton().subviews(); }
    static void expectNames(Toggle toggle, const char* off, const char* on) {
        ASSERT_EQ(toggle.stateString().count(), 2u);
        EXPECT_EQ(text(toggle.stateString().at<NSString>(0)), off);
        EXPECT_EQ(text(toggle.stateString().at<NSString>(1)), on);
    }
    static UIColor background(UIView view) { return view.send<"backgroundColor", UIColor>(); }
    static UIColor tint(UIView view) { return view.send<"tintColor", UIColor>(); }
};

TEST_F(ToggleBase, NamesTheOffStateFirst) {
    boot();
    expectNames(packageToggle(), "no", "yes");
    expectNames(imageToggle(), "no", "yes");
}

TEST_F(ToggleBase, HasNoNamesWithoutStrings) {
    boot();
    auto package = make<Toggle, "initWithPackageContentsPath:">(mutePackage());
    auto image = make<Toggle, "initWithToggleImage:">(picture());
    EXPECT_FALSE(package.stateString());
    EXPECT_FALSE(image.stateString());
    EXPECT_TRUE(package.toggleButton().packageView());
    EXPECT_TRUE(image.toggleButton().onImageView());
}

TEST_F(ToggleBase, StandsInAViewOfItsOwnWithItsButton) {
    boot();
    for (Toggle toggle : {packageToggle(), imageToggle()}) {
        UIView view = toggle.view();
        EXPECT_STREQ(class_getName(object_getClass(view.get())), "VNTDailyToggleView");
        EXPECT_TRUE((view.send<"toggleButton", Object>()) == toggle.toggleButton());
        EXPECT_TRUE(toggle.toggleButton().superview() == view);
        EXPECT_EQ(toggle.maxLight(), 0.7);
        EXPECT_FALSE(toggle.isOn());
        EXPECT_FALSE((toggle.send<"module", Object>()));
        EXPECT_TRUE((toggle.send<"_canShowWhileLocked", bool>()));
        EXPECT_EQ((toggle.toggleButton().send<"allControlEvents", unsigned long>()), 64u);
    }
}

// A subclass that sees, at its first refresh, how far its making has come.
struct CuriousToggle : VNTDailyToggleViewController {
    static constexpr FixedString name{"CuriousToggle"};
    using VNTDailyToggleViewController::VNTDailyToggleViewController;
};
int refreshes = 0;
bool wasComplete = false;
bool wasAsked = false;

void look(CuriousToggle self) {
    ++refreshes;
    wasComplete = self.toggleButton() && self.toggleButton().superview() == self.view() &&
                  self.stateString().count() == 2 && self.maxLight() == 0.7;
}
void noteWish(CuriousToggle, bool on) { wasAsked = on; }

TEST_F(ToggleBase, RefreshesOnceWhenItIsMadeAndAgainWhenAsked) {
    boot();
    define<CuriousToggle, VNTDailyToggleViewController>()
        .method<"refreshState", &look>()
        .method<"setIsOn:", &noteWish>();
    Toggle toggle = makePackageToggle("CuriousToggle", "yes", "no");
    EXPECT_EQ(refreshes, 1);
    EXPECT_TRUE(wasComplete);
    refreshAll();
    EXPECT_EQ(refreshes, 2);
    tap(toggle);
    EXPECT_EQ(refreshes, 2);
    EXPECT_TRUE(wasAsked);  // the negation of the flag, which the override leaves at NO
    EXPECT_FALSE(toggle.isOn());
}

TEST_F(ToggleBase, TapsTurnItOverWithOneLightImpactEach) {
    boot();
    Toggle toggle = packageToggle();
    for (int taps = 1; taps <= 3; ++taps) {
        tap(toggle);
        EXPECT_EQ(toggle.isOn(), taps % 2 == 1);
        EXPECT_EQ(phone_->haptics(0), taps);
    }
    EXPECT_EQ(phone_->haptics(1), 0);
    EXPECT_EQ(phone_->calledCount("UIImpactFeedbackGenerator", "initWithStyle:"), 3);
}

TEST_F(ToggleBase, ReadsAndWritesTheFlagOnly) {
    boot();
    Toggle toggle = packageToggle();
    toggle.setIsOn(true);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(toggle.currentState(), 0);
    EXPECT_NEAR(toggle.toggleButton().offView().alpha(), 0.5, 1e-6);
}

TEST_F(ToggleBase, LaysAPackageOverTheTwoColours) {
    boot();
    Toggle toggle = packageToggle();
    VNTDailyToggleButton button = toggle.toggleButton();
    ASSERT_EQ(subviewsOf(toggle).count(), 3u);
    EXPECT_TRUE(subviewsOf(toggle).at(0) == button.onView());
    EXPECT_TRUE(subviewsOf(toggle).at(1) == button.offView());
    EXPECT_TRUE(subviewsOf(toggle).at(2) == button.packageView());
    EXPECT_FALSE(button.onImageView());
    EXPECT_FALSE(button.offImageView());
    EXPECT_FALSE((button.send<"buttonView", Object>()));
    EXPECT_TRUE(button.layer().masksToBounds());
    EXPECT_TRUE(equal(background(button.onView()), UIColor::white()));
    EXPECT_TRUE(equal(background(button.offView()), UIColor::black()));
    for (UIView layer : {button.onView(), button.offView()}) {
        EXPECT_NEAR(layer.alpha(), 0.5, 1e-6);
        EXPECT_FALSE((layer.send<"isUserInteractionEnabled", bool>()));
    }
    EXPECT_TRUE((button.packageView().send<"package", Object>()));
}

TEST_F(ToggleBase, LaysTheOnImageUnderTheOffImage) {
    boot();
    Toggle toggle = imageToggle();
    VNTDailyToggleButton button = toggle.toggleButton();
    ASSERT_EQ(subviewsOf(toggle).count(), 4u);
    EXPECT_TRUE(subviewsOf(toggle).at(0) == button.onView());
    EXPECT_TRUE(subviewsOf(toggle).at(1) == button.offView());
    EXPECT_TRUE(subviewsOf(toggle).at(2) == button.onImageView());
    EXPECT_TRUE(subviewsOf(toggle).at(3) == button.offImageView());
    EXPECT_FALSE(button.packageView());
    for (UIImageView glyph : {button.onImageView(), button.offImageView()}) {
        EXPECT_EQ((glyph.send<"contentMode", long>()), 1);
        UIImage shown = glyph.send<"image", UIImage>();
        ASSERT_TRUE(shown);
        EXPECT_EQ((shown.send<"renderingMode", long>()), 2);
    }
}

// 60 - 5 = 55, centred: (60 - 55) / 2 = 2.5.
TEST_F(ToggleBase, IsACircleWithItsGlyphInTheMiddle) {
    boot();
    Toggle package = packageToggle();
    package.view().setFrame(rect(10, 20, 60, 60));
    VNTDailyToggleButton button = package.toggleButton();
    EXPECT_EQ(button.frame(), rect(0, 0, 60, 60));
    EXPECT_EQ(button.layer().cornerRadius(), 30);
    EXPECT_EQ(button.onView().frame(), rect(0, 0, 60, 60));
    EXPECT_EQ(button.offView().frame(), rect(0, 0, 60, 60));
    EXPECT_EQ((button.packageView().send<"transform", CGAffineTransform>()),
              (CGAffineTransform{0.85, 0, 0, 0.85, 0, 0}));
    EXPECT_EQ(button.packageView().center(), (CGPoint{30, 30}));

    Toggle image = imageToggle();
    image.toggleButton().setFrame(rect(0, 0, 60, 60));
    EXPECT_EQ(image.toggleButton().layer().cornerRadius(), 30);
    EXPECT_EQ(image.toggleButton().onImageView().frame(), rect(2.5, 2.5, 55, 55));
    EXPECT_EQ(image.toggleButton().offImageView().frame(), rect(2.5, 2.5, 55, 55));
}

// Corner radius by the height alone: 30 x 0.5.
TEST_F(ToggleBase, RoundsByItsHeightWhenItIsNotSquare) {
    boot();
    VNTDailyToggleButton button = packageToggle().toggleButton();
    button.setFrame(rect(5, 5, 80, 30));
    EXPECT_EQ(button.layer().cornerRadius(), 15);
    EXPECT_EQ(button.packageView().center(), (CGPoint{40, 15}));
    EXPECT_EQ(button.onView().frame(), rect(0, 0, 80, 30));
}

TEST_F(ToggleBase, ShowsAPackageStateByItsName) {
    boot();
    Toggle toggle = packageToggle();
    toggle.toggleButton().updateState("silent"_ns);
    EXPECT_EQ(glyphOf(toggle), "silent");
}

TEST_F(ToggleBase, ShowsTheOnImageForTheNameOnAlone) {
    boot();
    VNTDailyToggleButton button = imageToggle().toggleButton();
    button.updateState("on"_ns);
    EXPECT_EQ(button.onImageView().alpha(), 1);
    EXPECT_EQ(button.offImageView().alpha(), 0);
    for (NSString other : {"off"_ns, "full"_ns, "min"_ns, "On"_ns, ""_ns, NSString()}) {
        button.updateState("on"_ns);
        button.updateState(other);
        EXPECT_EQ(button.onImageView().alpha(), 0) << text(other);
        EXPECT_EQ(button.offImageView().alpha(), 1) << text(other);
    }
}

TEST_F(ToggleBase, ColoursTheLayersOfAPackageButton) {
    boot();
    VNTDailyToggleButton button = packageToggle().toggleButton();
    button.setOnColor(UIColor::systemOrange());
    button.setOffColor(UIColor::systemBlue());
    EXPECT_TRUE(equal(background(button.onView()), UIColor::systemOrange()));
    EXPECT_TRUE(equal(background(button.offView()), UIColor::systemBlue()));
    EXPECT_TRUE(equal(button.send<"onColor", UIColor>(), UIColor::systemOrange()));
    EXPECT_TRUE(equal(button.send<"offColor", UIColor>(), UIColor::systemBlue()));
}

TEST_F(ToggleBase, TintsTheImagesAndLeavesTheirLayersWhiteAndBlack) {
    boot();
    VNTDailyToggleButton button = imageToggle().toggleButton();
    button.setOnColor(UIColor::systemOrange());
    button.setOffColor(UIColor::systemBlue());
    EXPECT_TRUE(equal(tint(button.onImageView()), UIColor::systemOrange()));
    EXPECT_TRUE(equal(tint(button.offImageView()), UIColor::systemBlue()));
    EXPECT_TRUE(equal(background(button.onView()), UIColor::white()));
    EXPECT_TRUE(equal(background(button.offView()), UIColor::black()));
}

TEST_F(ToggleBase, KeepsAnEmptyGlyphForAPathThatIsNoPackage) {
    boot();
    for (NSString path : {"/System/Library/Nothing.ca"_ns, ""_ns}) {
        auto toggle = make<Toggle, "initWithPackageContentsPath:">(path);
        EXPECT_TRUE(toggle.toggleButton().packageView());
        EXPECT_FALSE((toggle.toggleButton().packageView().send<"package", Object>()));
        tap(toggle);
    }
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(ToggleBase, KeepsAnEmptyGlyphWhenTheModuleIsNotThere) {
    phone_->missingBundle("/System/Library/ControlCenter/Bundles/MuteModule.bundle");
    boot();
    EXPECT_FALSE((packageToggle().toggleButton().packageView().send<"package", Object>()));
}

TEST_F(ToggleBase, ShowsNoStateWithoutNames) {
    boot();
    className_ = "VNTMuteToggleViewController";
    auto toggle = make<Toggle, "initWithPackageContentsPath:">(mutePackage());
    tap(toggle);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_FALSE(toggle.currentStateName());
    EXPECT_EQ(glyphOf(toggle), "(nil)");
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(ToggleBase, DoesNotLayOutTheOtherButtonOfItsView) {
    boot();
    UIView view = packageToggle().view();
    auto other = create<UIView, "initWithFrame:">(rect(1, 2, 3, 4));
    view.send<"setButtonView:">(UIView(other));
    view.setFrame(rect(0, 0, 60, 60));
    EXPECT_EQ(other.frame(), rect(1, 2, 3, 4));
    EXPECT_TRUE((view.send<"buttonView", Object>()) == other);
    EXPECT_FALSE(other.superview());
}

class ToggleWithoutAClass : public ToggleBase, public testing::WithParamInterface<const char*> {};

TEST_P(ToggleWithoutAClass, WorksAsFarAsItCan) {
    phone_->missingClass(GetParam());
    boot();
    Toggle toggle = packageToggle();
    toggle.view().setFrame(rect(0, 0, 50, 50));
    toggle.toggleButton().updateState("silent"_ns);
    toggle.toggleButton().setOnColor(UIColor::systemOrange());
    tap(toggle);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(Classes, ToggleWithoutAClass,
                         testing::Values("CCUICAPackageView", "CAPackage",
                                         "UIImpactFeedbackGenerator"));

}  // namespace
}  // namespace vantori::tests
