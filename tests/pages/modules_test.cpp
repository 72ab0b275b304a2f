// The page of modules, the round button and the hooks that keep screen recording available.
#include "pages/modules_page.hpp"

#include "pages/module_round_button.hpp"
#include "platform/control_center.hpp"
#include "platform/definition.hpp"
#include "simulator/runtime/journal.hpp"
#include "tests/library_phone.hpp"
#include "tests/order.hpp"

namespace vantori::tests {
namespace {

constexpr const char* finishLaunching = "com.ferolin.vantori-finish-launching";

// Records what it is asked; stands for a Control Center that knows only some of the messages.
struct TestModuleView : UIView {
    static constexpr FixedString name{"TestModuleView"};
    using UIView::UIView;
};
struct TestModuleViewState {
    Copied<NSString> glyphState;
    int told;
};
void setGlyphState(TestModuleView self, NSString glyphState) {
    stateOf<TestModuleViewState>(self).glyphState = Copied<NSString>(glyphState);
    ++stateOf<TestModuleViewState>(self).told;
}

// A recogniser that is in whatever state a test says.
struct TestPress : UIGestureRecognizer {
    static constexpr FixedString name{"TestPress"};
    using UIGestureRecognizer::UIGestureRecognizer;
};
struct TestPressState {
    long value;
};
long pressState(TestPress self) { return stateOf<TestPressState>(self).value; }

class ModulesPage : public LibraryPhone {
  protected:
    using Button = VNTCCToggleRoundButton;

    void bootWithTestClasses() {
        boot();
        define<TestModuleView, UIView, TestModuleViewState>()
            .method<"setGlyphState:", &setGlyphState>();
        define<TestPress, UIGestureRecognizer, TestPressState>().method<"state", &pressState>();
    }
    static VNTCCTogglesBarViewController page() {
        return VNTSBToolBarController::shared().ccTogglesViewController();
    }
    static Strong<Button> makeButton() { return create<Button>(); }
    static Strong<UIView> view(CGRect frame = rect(1, 2, 3, 4)) {
        return create<UIView, "initWithFrame:">(frame);
    }
    static unsigned long recognisers(UIView view) {
        return view.send<"gestureRecognizers", NSArray>().count();
    }
    static Strong<RPControlCenterModuleViewController> recorder() {
        return create<RPControlCenterModuleViewController>();
    }
    static double number(Button button, NSString key) {
        return button.send<"valueForKey:", Object>(key).send<"doubleValue", double>();
    }
    long called(const char* cls, const char* selector) {
        return phone_->calledCount(cls, selector);
    }
    long expansions() {
        return called("CCUIModuleCollectionViewController", "vntExpandModuleWithIdentifier:");
    }
};

TEST_F(ModulesPage, StartsWithEmptyListsAndTheSystemsManager) {
    boot();
    auto fresh = create<VNTCCTogglesBarViewController>();
    for (NSArray list :
         {fresh.send<"allModuleButtons", NSArray>(), fresh.send<"enabledModuleButtons", NSArray>(),
          fresh.send<"allInstances", NSArray>()}) {
        ASSERT_TRUE(list);
        EXPECT_TRUE(list.isKindOfClass(objc_getClass("NSMutableArray")));
        EXPECT_EQ(list.count(), 0u);
    }
    EXPECT_FALSE((fresh.send<"hasSetupButtons", bool>()));
    EXPECT_TRUE((fresh.send<"moduleManager", CCUIModuleInstanceManager>() ==
                 CCUIModuleInstanceManager::shared()));
    EXPECT_FALSE((fresh.send<"allCustomModules", Object>()));
    ASSERT_TRUE(fresh.scrollView());
    EXPECT_FALSE((fresh.send<"isViewLoaded", bool>()));
    EXPECT_EQ(fresh.scrollView().superview(), fresh.view());
    EXPECT_TRUE((fresh.send<"_canShowWhileLocked", bool>()));
}

TEST_F(ModulesPage, SetUpIsNotedOnceAndFillingDoesNothing) {
    boot();
    EXPECT_FALSE((page().send<"hasSetupButtons", bool>()));
    page().setupButtons();
    page().setupButtons();
    EXPECT_TRUE((page().send<"hasSetupButtons", bool>()));
    page().send<"fillButtons">();
    page().send<"layoutButtons">();
    page().send<"loadCustomModule">();
    page().send<"layoutCustomModule">();
    EXPECT_EQ((page().send<"allModuleButtons", NSArray>().count()), 0u);
    EXPECT_EQ(page().scrollView().subviews().count(), 0u);
}

TEST_F(ModulesPage, AnyZoneTestSetsItUpOnBothToolbars) {
    boot();
    phone_->grabber(simulator::PullPhase::began, 300, 10, 0);  // outside the left zone
    EXPECT_TRUE((page().send<"hasSetupButtons", bool>()));
    EXPECT_TRUE((VNTToolBarController::shared()
                     .ccTogglesViewControllerForApp()
                     .send<"hasSetupButtons", bool>()));
}

TEST_F(ModulesPage, ItsPlainPropertiesKeepWhatTheyAreGiven) {
    boot();
    page().send<"setStartY:">(12.5);
    page().send<"setOriginalButtonWidth:">(60.0);
    page().send<"setAllCustomModules:">(NSArray(NSMutableArray::empty()));
    page().send<"setAppToolBarController:">(UIViewController(VNTToolBarController::shared()));
    page().send<"setSbToolBarController:">(UIViewController(VNTSBToolBarController::shared()));
    EXPECT_EQ((page().send<"startY", double>()), 12.5);
    EXPECT_EQ((page().send<"originalButtonWidth", double>()), 60);
    EXPECT_TRUE((page().send<"allCustomModules", NSArray>()));
    EXPECT_TRUE((page().send<"appToolBarController", Object>() == VNTToolBarController::shared()));
    EXPECT_TRUE((page().send<"sbToolBarController", Object>() == VNTSBToolBarController::shared()));
}

struct Shape {
    double width, height, radius;
};
class RoundShape : public ModulesPage, public testing::WithParamInterface<Shape> {};

// Half the height, whatever the width.
TEST_P(RoundShape, IsRoundByItsHeight) {
    boot();
    auto button = makeButton();
    button.setFrame(rect(5, 6, GetParam().width, GetParam().height));
    EXPECT_EQ(button.layer().cornerRadius(), GetParam().radius);
    EXPECT_TRUE(button.layer().masksToBounds());
}

TEST_P(RoundShape, StretchesAnOnlySubview) {
    boot();
    auto button = makeButton();
    auto only = view();
    button.addSubview(only);
    button.setFrame(rect(5, 6, GetParam().width, GetParam().height));
    EXPECT_EQ(only.frame(), (rect(0, 0, GetParam().width, GetParam().height)));
}

TEST_P(RoundShape, LeavesTwoSubviewsAlone) {
    boot();
    auto button = makeButton();
    auto first = view(), second = view();
    button.addSubview(first);
    button.addSubview(second);
    button.setFrame(rect(5, 6, GetParam().width, GetParam().height));
    EXPECT_EQ(first.frame(), (rect(1, 2, 3, 4)));
    EXPECT_EQ(second.frame(), (rect(1, 2, 3, 4)));
}

INSTANTIATE_TEST_SUITE_P(Shapes, RoundShape,
                         testing::Values(Shape{60, 60, 30}, Shape{60, 40, 20}, Shape{40, 60, 30}));

TEST_F(ModulesPage, EveryMoveToOrFromAWindowAddsALongPress) {
    boot();
    VNTSBToolBarController::shared().makeKeyWindow();
    UIView window = VNTSBToolBarController::shared().send<"vantoriHostWindow", UIView>();
    auto button = makeButton();
    EXPECT_EQ(recognisers(button), 0u);
    window.addSubview(button);
    EXPECT_EQ(recognisers(button), 1u);
    button.removeFromSuperview();
    EXPECT_EQ(recognisers(button), 2u);
    window.addSubview(button);
    EXPECT_EQ(recognisers(button), 3u);
    auto press = button.send<"gestureRecognizers", NSArray>().at<UIGestureRecognizer>(2);
    EXPECT_TRUE(press.isKindOfClass(objc_getClass("UILongPressGestureRecognizer")));
    button.removeFromSuperview();
}

// One observer more at each change; the first message takes all of them away.
TEST_F(ModulesPage, TheFrameAddsObserversThatGoTogether) {
    bootWithTestClasses();
    auto button = makeButton();
    auto toggle = create<TestModuleView>();
    button.addToggleView(toggle);
    button.send<"setViewControllerForContext:">(UIViewController(recorder()));
    phone_->post(finishLaunching);
    EXPECT_EQ(stateOf<TestModuleViewState>(toggle).told, 0);
    for (int i = 0; i < 3; ++i) button.setFrame(rect(0, 0, 60, 60));
    phone_->post("com.ferlin.vantori-finish-launching");  // the other name: nobody hears it
    EXPECT_EQ(stateOf<TestModuleViewState>(toggle).told, 0);
    phone_->post(finishLaunching);
    EXPECT_GE(stateOf<TestModuleViewState>(toggle).told, 1);
    EXPECT_STREQ(stateOf<TestModuleViewState>(toggle).glyphState.utf8(), "Base State");
    const int told = stateOf<TestModuleViewState>(toggle).told;
    phone_->post(finishLaunching);
    EXPECT_EQ(stateOf<TestModuleViewState>(toggle).told, told);
    button.setFrame(rect(0, 0, 60, 60));
    phone_->post(finishLaunching);
    EXPECT_GT(stateOf<TestModuleViewState>(toggle).told, told);
}

TEST_F(ModulesPage, EnablingMakesScreenRecordingAvailable) {
    boot();
    auto button = makeButton();
    auto module = recorder();
    button.send<"setViewControllerForContext:">(UIViewController(module));
    phone_->clear();
    button.enableToggle();
    EXPECT_EQ(called("RPControlCenterModuleViewController", "setAvailable:"), 1);
}

TEST_F(ModulesPage, ItIsAvailableBeforeItsGlyphRests) {
    bootWithTestClasses();
    auto button = makeButton();
    auto toggle = create<TestModuleView>();
    button.addToggleView(toggle);
    button.send<"setViewControllerForContext:">(UIViewController(recorder()));
    phone_->clear();
    long before = 0;
    Spy<"setGlyphState:", id>::on("TestModuleView", [&](Object, id) {
        before = called("RPControlCenterModuleViewController", "setAvailable:");
    });
    button.enableToggle();
    EXPECT_EQ(before, 1);
}

TEST_F(ModulesPage, TheViewsOwnPartIsDoneToo) {
    boot();
    auto button = makeButton();
    phone_->clear();
    button.send<"didMoveToWindow">();
    button.send<"layoutSubviews">();
    EXPECT_EQ(called("UIView", "didMoveToWindow"), 1);
    EXPECT_EQ(called("UIView", "layoutSubviews"), 1);
}

TEST_F(ModulesPage, EnablingLeavesOtherModulesAlone) {
    bootWithTestClasses();
    auto button = makeButton();
    auto toggle = create<TestModuleView>();
    button.addToggleView(toggle);
    button.send<"setViewControllerForContext:">(UIViewController(create<UIViewController>()));
    phone_->clear();
    button.enableToggle();
    EXPECT_EQ(stateOf<TestModuleViewState>(toggle).told, 0);
    EXPECT_EQ(called("RPControlCenterModuleViewController", "setAvailable:"), 0);
}

TEST_F(ModulesPage, EnablingWithAViewThatHasNoGlyphIsQuiet) {
    boot();
    auto button = makeButton();
    auto toggle = view();
    button.addToggleView(toggle);
    button.send<"setViewControllerForContext:">(UIViewController(recorder()));
    button.enableToggle();
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(ModulesPage, AButtonThatDiesIsNotToldAnyMore) {
    boot();
    {
        auto button = makeButton();
        button.setFrame(rect(0, 0, 60, 60));
    }
    phone_->post(finishLaunching);
    EXPECT_FALSE(phone_->crashed());
}

TEST_F(ModulesPage, TheToggleViewMovesInAndOut) {
    boot();
    auto home = view(rect(0, 0, 100, 100));
    auto toggle = view();
    home.addSubview(toggle);
    auto button = makeButton();
    button.setFrame(rect(0, 0, 60, 60));
    button.addToggleView(toggle);
    EXPECT_EQ(toggle.superview(), button);
    EXPECT_TRUE((button.send<"previousSuper", UIView>() == home));
    EXPECT_TRUE((button.send<"toggleView", UIView>() == toggle));
    EXPECT_EQ(toggle.frame(), (rect(1, 2, 3, 4)));
    button.send<"ccBack">();
    EXPECT_EQ(toggle.superview(), home);
    EXPECT_TRUE((button.send<"toggleView", UIView>() == toggle));
    button.send<"refreshToggle">();
    EXPECT_EQ(toggle.superview(), button);
    EXPECT_EQ(toggle.frame(), (rect(0, 0, 60, 60)));
}

TEST_F(ModulesPage, AToggleViewWithoutAPlaceGoesNowhere) {
    boot();
    auto button = makeButton();
    auto toggle = view();
    button.addToggleView(toggle);
    EXPECT_FALSE((button.send<"previousSuper", UIView>()));
    button.send<"ccBack">();
    EXPECT_EQ(toggle.superview(), button);
}

TEST_F(ModulesPage, AMenuModuleTellsItsExpandedSize) {
    boot();
    auto button = makeButton();
    auto module = recorder();
    button.send<"setViewControllerForContext:">(UIViewController(module));
    const double width = module.send<"preferredExpandedContentWidth", double>();
    const double height = module.send<"preferredExpandedContentHeight", double>();
    EXPECT_EQ(number(button, "expandedWidth"_ns), width);
    EXPECT_EQ(number(button, "expandedHeight"_ns), height);
    button.send<"setExpandedWidth:">(1.0);
    button.send<"setExpandedHeight:">(2.0);
    button.send<"setViewControllerForContext:">(UIViewController(create<UIViewController>()));
    EXPECT_EQ(number(button, "expandedWidth"_ns), 1);  // this one has no size to prefer
    button.send<"layoutSubviews">();
    EXPECT_EQ(number(button, "expandedHeight"_ns), 2);
    button.send<"setViewControllerForContext:">(UIViewController(module));
    button.send<"setExpandedWidth:">(1.0);
    button.send<"setExpandedHeight:">(2.0);
    button.send<"layoutSubviews">();
    EXPECT_EQ(number(button, "expandedWidth"_ns), width);
    EXPECT_EQ(number(button, "expandedHeight"_ns), height);
    EXPECT_TRUE((button.send<"viewControllerForContext", Object>() == module));
}

TEST_F(ModulesPage, TakingScreenRecordingInMakesItAvailable) {
    boot();
    auto button = makeButton();
    auto module = recorder();
    phone_->clear();
    button.send<"setViewControllerForContext:">(UIViewController(module));
    EXPECT_EQ(called("RPControlCenterModuleViewController", "setAvailable:"), 1);
    button.send<"setViewControllerForContext:">(UIViewController(create<UIViewController>()));
    button.send<"setViewControllerForContext:">(UIViewController());
    EXPECT_EQ(called("RPControlCenterModuleViewController", "setAvailable:"), 1);
}

TEST_F(ModulesPage, ScreenRecordingIsAvailableWhateverTheSystemSays) {
    boot();
    auto module = recorder();
    phone_->clear();
    module.setAvailable(false);
    const auto last =
        simulator::Journal::last("RPControlCenterModuleViewController", "setAvailable:");
    ASSERT_TRUE(last);
    EXPECT_TRUE(std::get<bool>(last->at(0)));  // whatever was passed
    EXPECT_EQ(called("RPControlCenterModuleViewController", "setAvailable:"), 1);
    EXPECT_TRUE((module.send<"available", bool>()));
    EXPECT_EQ(called("RPControlCenterModuleViewController", "available"), 0);
}

struct Press {
    long state;
    int expansions;
};
struct Generation {
    const char* system;
    double delay;
};

class LongPress : public ModulesPage, public testing::WithParamInterface<Press> {};

// Possible 0, began 1, changed 2, ended 3, cancelled 4, failed 5.
TEST_P(LongPress, ExpandsByItsState) {
    bootWithTestClasses();
    auto button = makeButton();
    button.send<"setModuleIdentifier:">("com.example.module"_ns);
    auto press = create<TestPress>();
    stateOf<TestPressState>(press).value = GetParam().state;
    phone_->clear();
    button.send<"handleLongPressGesture:">(UIGestureRecognizer(press));
    EXPECT_EQ(expansions(), GetParam().expansions);
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(1), GetParam().expansions);
}

INSTANTIATE_TEST_SUITE_P(States, LongPress,
                         testing::Values(Press{0, 1}, Press{1, 1}, Press{2, 0}, Press{3, 0},
                                         Press{4, 1}, Press{5, 0}));

class Expanding : public ModulesPage, public testing::WithParamInterface<Generation> {};

TEST_P(Expanding, PreparesAtOnceAndShowsAfterAWhile) {
    phone_->system(GetParam().system);
    boot();
    auto button = makeButton();
    button.send<"setModuleIdentifier:">("com.apple.replaykit.controlcenter.screencapture"_ns);
    phone_->clear();
    button.expandModule();
    EXPECT_EQ(called("SBControlCenterController", "preparedForExpanding"), 1);
    EXPECT_EQ(expansions(), 1);
    using Kind = simulator::Event::Kind;
    const std::vector<simulator::Event> inOrder{
        {Kind::called, "SBControlCenterController", "preparedForExpanding"},
        {Kind::called, "CCUIModuleCollectionViewController", "vntExpandModuleWithIdentifier:"}};
    EXPECT_EQ(phone_->inOrder(inOrder).met, 2u);
    EXPECT_EQ(phone_->haptics(1), 0);
    phone_->wait(GetParam().delay - 0.02);
    EXPECT_EQ(phone_->haptics(1), 0);
    EXPECT_EQ(called("SBControlCenterController", "showExpandedViewAnimated"), 0);
    phone_->wait(0.04);
    EXPECT_EQ(phone_->haptics(1), 1);
    EXPECT_EQ(called("SBControlCenterController", "showExpandedViewAnimated"), 1);
    const std::vector<simulator::Event> thenShown{
        {Kind::haptic, "1"},
        {Kind::called, "SBControlCenterController", "showExpandedViewAnimated"}};
    EXPECT_EQ(phone_->inOrder(thenShown).met, 2u);
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(1), 1);
    EXPECT_EQ(called("SBControlCenterController", "showExpandedViewAnimated"), 1);
    EXPECT_TRUE((SBControlCenterController::shared().send<"isVisible", bool>()));
}

INSTANTIATE_TEST_SUITE_P(Generations, Expanding,
                         testing::Values(Generation{"11.4", 0.3}, Generation{"12.4", 0.3},
                                         Generation{"13.0", 0.15}, Generation{"14.2", 0.15}));

TEST_F(ModulesPage, AFingerExpandsOnceWhenThePressBegins) {
    boot();
    VNTSBToolBarController::shared().makeKeyWindow();
    auto button = makeButton();
    button.setFrame(rect(20, 30, 60, 60));
    button.send<"setModuleIdentifier:">("com.apple.control-center.ConnectivityModule"_ns);
    VNTSBToolBarController::shared().updateYValue(100);
    VNTSBToolBarController::shared().view().addSubview(button);
    phone_->clear();
    phone_->touchDown(50, 130);
    phone_->wait(0.45);
    EXPECT_EQ(expansions(), 0);
    phone_->wait(0.1);
    EXPECT_EQ(expansions(), 1);
    phone_->touchMove(60, 140, 0.1);
    phone_->touchUp();
    phone_->wait(1);
    EXPECT_EQ(expansions(), 1);
    EXPECT_EQ(phone_->haptics(1), 1);
    button.removeFromSuperview();
}

// Each missing, the others' steps are made and nothing is raised.
class WithoutCenter : public ModulesPage, public testing::WithParamInterface<const char*> {};

TEST_P(WithoutCenter, ExpandingAndPagesAreQuiet) {
    phone_->missingClass(GetParam());
    boot();
    auto button = makeButton();
    button.setFrame(rect(0, 0, 60, 60));
    button.send<"setModuleIdentifier:">("com.apple.control-center.ConnectivityModule"_ns);
    button.send<"setViewControllerForContext:">(UIViewController(recorder()));
    button.expandModule();
    button.enableToggle();
    phone_->wait(1);
    EXPECT_EQ(objc_getClass(GetParam()), nullptr);
    auto fresh = create<VNTCCTogglesBarViewController>();
    EXPECT_TRUE((fresh.send<"allModuleButtons", NSArray>()));
    phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
    phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
    EXPECT_TRUE(VNTSBToolBarController::shared().isEnabled());
    EXPECT_FALSE(phone_->crashed());
}

INSTANTIATE_TEST_SUITE_P(
    EachClass, WithoutCenter,
    testing::Values("SBControlCenterController", "CCUIModuleCollectionViewController",
                    "CCUIModuleInstanceManager", "CCUIModuleInstance",
                    "CCUIContentModuleContainerView", "RPControlCenterModuleViewController",
                    "CCUIMenuModuleViewController", "CCUIButtonModuleViewController",
                    "CCUIButtonModuleView", "CCUIConnectivityModuleViewController",
                    "SBControlCenterWindow", "UIImpactFeedbackGenerator",
                    "UILongPressGestureRecognizer", "UIScrollView"));

// A Control Center of which single messages are unknown: its shared object is replaced by one that
// answers nothing.
TEST_F(ModulesPage, MessagesThatControlCenterDoesNotKnowAreSkipped) {
    boot();
    auto button = makeButton();
    for (const char* name : {"SBControlCenterController", "CCUIModuleCollectionViewController"}) {
        Class meta = object_getClass(classObject(objc_getClass(name)));
        IMP nothingKnown = reinterpret_cast<IMP>(+[](id, SEL) -> id {
            static id plain = create<Object>().leak();
            return plain;
        });
        method_setImplementation(class_getInstanceMethod(meta, selector<"sharedInstance">()),
                                 nothingKnown);
    }
    phone_->clear();
    button.expandModule();
    phone_->wait(1);
    EXPECT_EQ(phone_->haptics(1), 1);
    EXPECT_FALSE(phone_->crashed());
}

// A grid that only knows the system's own message gets the library's beside it.
struct PlainGrid : Object {
    static constexpr FixedString name{"CCUIModuleCollectionViewController"};
    using Object::Object;
};
struct PlainGridState {
    Copied<NSString> expanded;
};
Strong<PlainGrid> plainGrid;
PlainGrid sharedGrid(Class) { return plainGrid; }
void expandInGrid(PlainGrid self, NSString identifier) {
    stateOf<PlainGridState>(self).expanded = Copied<NSString>(identifier);
}

TEST_F(ModulesPage, TheMessageIsAddedToAGridThatLacksIt) {
    phone_->missingClass("CCUIModuleCollectionViewController");
    define<PlainGrid, Object, PlainGridState>()
        .classMethod<"sharedInstance", &sharedGrid>()
        .method<"expandModuleWithIdentifier:", &expandInGrid>();
    plainGrid = create<PlainGrid>();
    boot();
    auto button = makeButton();
    button.send<"setModuleIdentifier:">("com.example.module"_ns);
    button.expandModule();
    EXPECT_STREQ(stateOf<PlainGridState>(plainGrid).expanded.utf8(), "com.example.module");
    plainGrid = {};
}

}  // namespace
}  // namespace vantori::tests
