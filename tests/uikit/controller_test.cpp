// Windows, controllers, the layout pass, traits, timers.
#include "simulator/uikit/feedback/feedback.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::testing {

namespace {

struct LoggingController : UIViewController {
    static constexpr FixedString name{"LoggingController"};
    using UIViewController::UIViewController;
};
struct LoggingView : UIView {
    static constexpr FixedString name{"LoggingView"};
    using UIView::UIView;
};
std::vector<std::string>& calls() {
    static auto& all = *new std::vector<std::string>;
    return all;
}

class Controllers : public UIKit {
  protected:
    Controllers() {
        table<LoggingController, UIViewController>()
            .method<"viewDidLoad">([](LoggingController) { calls().push_back("viewDidLoad"); })
            .method<"viewWillLayoutSubviews">([](LoggingController) { calls().push_back("will"); })
            .method<"viewDidLayoutSubviews">([](LoggingController) { calls().push_back("did"); })
            .method<"traitCollectionDidChange:">([](LoggingController, UITraitCollection before) {
                calls().push_back("traits " + std::to_string(before.userInterfaceStyle()));
            });
        table<LoggingView, UIView>()
            .method<"layoutSubviews">([](LoggingView) { calls().push_back("layout"); })
            .method<"didMoveToWindow">(
                [](LoggingView v) { calls().push_back(windowOf(v) ? "window" : "no window"); });
        calls().clear();
    }
    using Calls = std::vector<std::string>;
};

TEST_F(Controllers, RootViewIsSizedToTheWindow) {
    auto window = create<UIWindow, "initWithFrame:">(rect(10, 20, 200, 300));
    EXPECT_TRUE(window.isHidden());
    auto controller = create<LoggingController>();
    window.setRootViewController(controller);
    EXPECT_EQ(controller.view().frame(), rect(0, 0, 200, 300));
    EXPECT_EQ(controller.view().superview(), window);
    EXPECT_EQ(calls(), Calls{"viewDidLoad"});
    window.makeKeyAndVisible();
    EXPECT_FALSE(window.isHidden());
}

TEST_F(Controllers, AStoredViewIsNotLoaded) {
    auto controller = create<LoggingController>();
    auto view = makeView(rect(0, 0, 10, 10));
    controller.send<"setView:">(static_cast<const UIView&>(view));
    EXPECT_EQ(controller.view(), view);
    EXPECT_EQ(calls(), Calls{});
}

TEST_F(Controllers, LayoutPassRunsAroundTheViewOnceBeforeTheFrame) {
    auto window = makeWindow();
    auto controller = create<LoggingController>();
    auto view = create<LoggingView, "initWithFrame:">(rect(0, 0, 10, 10));
    controller.send<"setView:">(static_cast<const UIView&>(view));
    window.setRootViewController(controller);
    pass(0);
    EXPECT_EQ(calls(), (Calls{"window", "will", "layout", "did"}));
    calls().clear();
    view.setTransform({0.9, 0, 0, 0.9, 0, 0});
    pass(0);
    EXPECT_EQ(calls(), Calls{});  // neither a transform nor an origin asks for layout
    view.send<"setNeedsLayout">();
    view.send<"setNeedsLayout">();
    pass(0);
    EXPECT_EQ(calls(), (Calls{"will", "layout", "did"}));
    calls().clear();
    auto child = makeView(rect(0, 0, 5, 5));
    view.addSubview(child);
    view.send<"layoutIfNeeded">();
    EXPECT_EQ(calls(), (Calls{"will", "layout", "did"}));
}

TEST_F(Controllers, LeavingTheWindowIsTold) {
    auto window = makeWindow();
    auto view = create<LoggingView, "initWithFrame:">(rect(0, 0, 10, 10));
    window.addSubview(view);
    view.removeFromSuperview();
    EXPECT_EQ(calls(), (Calls{"window", "no window"}));
}

TEST_F(Controllers, AddingAgainBringsToTheFrontOrMoves) {
    auto one = makeView(rect(0, 0, 1, 1)), two = makeView(rect(0, 0, 1, 1));
    auto first = makeView(rect(0, 0, 1, 1)), second = makeView(rect(0, 0, 1, 1));
    one.addSubview(first);
    one.addSubview(second);
    one.addSubview(first);
    EXPECT_EQ(one.subviews().last(), first);
    EXPECT_EQ(one.subviews().count(), 2u);
    two.addSubview(first);
    EXPECT_EQ(one.subviews().count(), 1u);
    EXPECT_EQ(first.superview(), two);
}

TEST_F(Controllers, TraitsAreToldOnlyWhenTheyChange) {
    auto window = makeWindow();
    auto controller = create<LoggingController>();
    window.setRootViewController(controller);
    calls().clear();
    setInterfaceStyle(1);
    EXPECT_EQ(calls(), Calls{});
    setInterfaceStyle(UITraitCollection::dark);
    EXPECT_EQ(calls(), Calls{"traits 1"});
    EXPECT_EQ(UITraitCollection::current().userInterfaceStyle(), UITraitCollection::dark);
    setInterfaceStyle(1);
}

TEST_F(Controllers, OneWindowIsKeyAndMakingKeyDoesNotShow) {
    auto first = makeWindow();
    auto second = create<UIWindow, "initWithFrame:">(rect(0, 0, 10, 10));
    second.send<"makeKeyWindow">();
    EXPECT_TRUE(second.isHidden());
    EXPECT_FALSE((first.send<"isKeyWindow", bool>()));
    EXPECT_EQ(keyWindow(), second);
}

TEST_F(Controllers, UnknownMessagesRaise) {
    auto view = makeView(rect(0, 0, 1, 1));
    EXPECT_ANY_THROW(view.send<"spin">());
}

TEST_F(Controllers, BlockTimersRunOnTheClock) {
    int fired = 0;
    auto count = block<void(Object)>([&](Object) { ++fired; });
    Object timer = Object(classObject(objc_getClass("NSTimer")))
                       .send<"scheduledTimerWithTimeInterval:repeats:block:", Object>(
                           1.0, true, BlockRef<void(Object)>(count));
    pass(0.9);
    EXPECT_EQ(fired, 0);
    pass(2.2);
    EXPECT_EQ(fired, 3);
    timer.send<"invalidate">();
    pass(2);
    EXPECT_EQ(fired, 3);
}

TEST_F(Controllers, ImpactsAreCountedByStyle) {
    clearHapticCounts();
    auto heavy = create<UIImpactFeedbackGenerator, "initWithStyle:">(2L);
    heavy.impactOccurred();
    EXPECT_EQ(hapticCount(2), 1);
    EXPECT_EQ(hapticCount(1), 0);
}

TEST_F(Controllers, TurningTheDevicePostsOnlyOnChange) {
    static int posts = 0;
    posts = 0;
    auto count = [](id, SEL) { ++posts; };
    auto observer = create<LoggingController>();
    class_addMethod(objc_getClass("LoggingController"), sel_registerName("turned"),
                    reinterpret_cast<IMP>(+count), "v@:");
    NSNotificationCenter::defaultCenter().addObserver(
        observer, sel_registerName("turned"), "UIDeviceOrientationDidChangeNotification"_ns);
    UIDevice::currentDevice().setOrientation(3, true);
    UIDevice::currentDevice().setOrientation(3, true);
    EXPECT_EQ(posts, 1);
    NSNotificationCenter::defaultCenter().send<"removeObserver:">(
        static_cast<const Object&>(observer));
    UIDevice::currentDevice().setOrientation(1, false);
}

}  // namespace

}  // namespace simulator::testing
