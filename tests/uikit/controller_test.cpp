// Windows, controllers, the layout pass, traits, timers.
#include "simulator/uikit/feedback/feedback.hpp"
#include "tests/uikit/support.hpp"

namespace simulator::tests {

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

// Observed on devices: a subview's new size, not its new place, lays its superview out too.
TEST_F(Controllers, ASubviewsNewSizeLaysOutItsSuperview) {
    auto window = makeWindow();
    auto controller = create<LoggingController>();
    auto view = create<LoggingView, "initWithFrame:">(rect(0, 0, 10, 10));
    controller.send<"setView:">(UIView(view.get()));
    window.setRootViewController(controller);
    auto child = makeView(rect(0, 0, 5, 5));
    view.addSubview(child);
    pass(0);
    calls().clear();
    child.setCenter({20, 20});
    pass(0);
    EXPECT_EQ(calls(), Calls{});
    child.setFrame(rect(0, 0, 6, 5));
    pass(0);
    EXPECT_EQ(calls(), (Calls{"will", "layout", "did"}));
}

struct ArrangingView : UIView {
    static constexpr FixedString name{"ArrangingView"};
    using UIView::UIView;
};

TEST_F(Controllers, ASuperviewMayArrangeItsSubviewsInItsOwnLayout) {
    table<ArrangingView, UIView>().method<"layoutSubviews">([](ArrangingView v) {
        calls().push_back("arrange");
        const double side = v.subviews().at<UIView>(0).frame().size.width + 1;
        v.subviews().at<UIView>(0).setFrame(rect(0, 0, side, side));
    });
    auto window = makeWindow();
    auto view = create<ArrangingView, "initWithFrame:">(rect(0, 0, 10, 10));
    view.addSubview(makeView(rect(0, 0, 5, 5)));
    window.addSubview(view);
    pass(0);
    EXPECT_EQ(calls(), Calls{"arrange"});
}

// Observed on devices: a view has one controller at most.
TEST_F(Controllers, AnotherControllersViewIsRefused) {
    auto first = create<UIViewController>(), second = create<UIViewController>();
    Strong<UIView> view = retained(first.view());
    EXPECT_ANY_THROW(second.send<"setView:">(UIView(view.get())));
    EXPECT_EQ(first.view(), view);
    first.send<"setView:">(UIView());
    second.send<"setView:">(UIView(view.get()));
    EXPECT_EQ(second.view(), view);
}

struct AppearingController : UIViewController {
    static constexpr FixedString name{"AppearingController"};
    using UIViewController::UIViewController;
};

void note(UIViewController controller, const char* what) {
    calls().push_back(std::string(controller.send<"title", NSString>().utf8()) + " " + what);
}

class Presentations : public Controllers {
  protected:
    Presentations() {
        table<AppearingController, UIViewController>()
            .method<"viewWillAppear:">([](AppearingController c, bool) { note(c, "will appear"); })
            .method<"viewDidAppear:">([](AppearingController c, bool) { note(c, "did appear"); })
            .method<"viewWillDisappear:">(
                [](AppearingController c, bool) { note(c, "will disappear"); })
            .method<"viewDidDisappear:">(
                [](AppearingController c, bool) { note(c, "did disappear"); });
        below_ = make("below"_ns);
        above_ = make("above"_ns);
        window_ = makeWindow();
        window_.setRootViewController(below_);
        calls().clear();
    }
    static Strong<UIViewController> make(NSString title) {
        Strong<UIViewController> controller = create<AppearingController>();
        controller.send<"setTitle:">(title);
        return controller;
    }
    void present() {
        below_.send<"presentViewController:animated:completion:">(UIViewController(above_.get()),
                                                                  false, BlockRef<void()>());
    }
    void dismiss() {
        below_.send<"dismissViewControllerAnimated:completion:">(false, BlockRef<void()>());
    }
    Strong<UIViewController> below_, above_;
    Strong<UIWindow> window_;
};

// As documented for UIModalPresentationFullScreen; the order is that of devices.
TEST_F(Presentations, OverTheWholeScreenThePresenterGoes) {
    present();
    EXPECT_EQ(calls(), (Calls{"below will disappear", "above will appear", "above did appear",
                              "below did disappear"}));
    EXPECT_FALSE(below_.view().superview());
    EXPECT_EQ(above_.view().superview(), window_);
    calls().clear();
    dismiss();
    EXPECT_EQ(calls(), (Calls{"above will disappear", "below will appear", "below did appear",
                              "above did disappear"}));
    EXPECT_EQ(below_.view().superview(), window_);
    EXPECT_FALSE(above_.view().superview());
}

TEST_F(Presentations, OverItsContextThePresenterStays) {
    constexpr long overFullScreen = 5;
    above_.send<"setModalPresentationStyle:">(overFullScreen);
    present();
    EXPECT_EQ(calls(), (Calls{"above will appear", "above did appear"}));
    EXPECT_EQ(below_.view().superview(), window_);
}

struct WindowWitness : Object {
    static constexpr FixedString name{"WindowWitness"};
    using Object::Object;
};

// As documented.
TEST_F(Controllers, WindowsTellWhatBecomesOfThem) {
    table<WindowWitness, Object>().method<"told:">([](WindowWitness, Object notification) {
        std::string name = notification.send<"name", NSString>().utf8();
        const bool second = notification.send<"object", UIView>().frame().size.width == 20;
        calls().push_back(name.substr(11, name.size() - 23) + (second ? " 2" : " 1"));
    });
    auto witness = create<WindowWitness>();
    for (const char* name :
         {"UIWindowDidBecomeVisibleNotification", "UIWindowDidBecomeHiddenNotification",
          "UIWindowDidBecomeKeyNotification", "UIWindowDidResignKeyNotification"}) {
        NSNotificationCenter::defaultCenter().addObserver(
            Object(witness.get()), sel_registerName("told:"), NSString::from(name));
    }
    auto first = makeWindow(rect(0, 0, 10, 10));
    EXPECT_EQ(calls(), (Calls{"BecomeVisible 1", "BecomeKey 1"}));
    calls().clear();
    auto second = makeWindow(rect(0, 0, 20, 20));
    EXPECT_EQ(calls(), (Calls{"BecomeVisible 2", "ResignKey 1", "BecomeKey 2"}));
    calls().clear();
    second.setHidden(true);
    EXPECT_EQ(calls(), Calls{"BecomeHidden 2"});
    NSNotificationCenter::defaultCenter().send<"removeObserver:">(Object(witness.get()));
}

// As documented.
TEST_F(Controllers, MakingKeyAndVisibleBringsToTheFrontOfTheLevel) {
    auto first = makeWindow(), second = makeWindow(), above = makeWindow();
    above.setWindowLevel(10);
    first.makeKeyAndVisible();
    EXPECT_EQ(windowsBackToFront(), (std::vector<Strong<UIWindow>>{second, first, above}));
}

// As documented: the hidden ones are there too, ordered from back to front.
TEST_F(Controllers, TheApplicationKnowsItsHiddenWindows) {
    auto front = makeWindow();
    front.setWindowLevel(10);
    auto hidden = create<UIWindow, "initWithFrame:">(rect(0, 0, 10, 10));
    auto application = sendClass<UIApplication, "sharedApplication", UIApplication>();
    NSArray all = application.send<"windows", NSArray>();
    ASSERT_EQ(all.count(), 2u);
    EXPECT_EQ(all.at(0), Object(hidden.get()));
    EXPECT_EQ(all.at(1), Object(front.get()));
}

// As documented: a phone that lies is compact in height, and regular in width when it is large.
TEST_F(Controllers, ATurnChangesTheSizeClasses) {
    auto window = makeWindow();
    auto controller = create<LoggingController>();
    window.setRootViewController(controller);
    const Screen before = screen();
    auto classes = [&] {
        auto traits = controller.send<"traitCollection", UITraitCollection>();
        return std::pair(traits.send<"horizontalSizeClass", long>(),
                         traits.send<"verticalSizeClass", long>());
    };
    EXPECT_EQ(classes(), std::pair(1L, 2L));
    calls().clear();
    setInterfaceOrientation(orientationLandscapeRight);
    EXPECT_EQ(calls(), Calls{"traits 1"});
    EXPECT_EQ(classes(), std::pair(1L, 1L));
    setInterfaceOrientation(orientationLandscapeLeft);
    EXPECT_EQ(calls().size(), 1u);
    screen().portrait = {414, 896};
    EXPECT_EQ(classes(), std::pair(2L, 1L));
    setInterfaceOrientation(orientationPortrait);
    screen() = before;
}

struct TimerWitness : Object {
    static constexpr FixedString name{"TimerWitness"};
    using Object::Object;
};

class Timers : public Controllers {
  protected:
    Timers() {
        table<TimerWitness, Object>().method<"act:">(
            [](TimerWitness, Object) { calls().push_back("acted"); });
        witness_ = create<TimerWitness>();
    }
    Object made(bool repeats) {
        return sendClass<NSTimer,
                         "timerWithTimeInterval:target:selector:userInfo:repeats:", Object>(
            1.0, Object(witness_.get()), sel_registerName("act:"), Object(), repeats);
    }
    static void add(Object timer, NSString mode) {
        Object(classObject(objc_getClass("NSRunLoop")))
            .send<"mainRunLoop", Object>()
            .send<"addTimer:forMode:">(timer, mode);
    }
    Strong<TimerWitness> witness_;
};

// As documented: a timer of an invocation sends that message.
TEST_F(Timers, SendTheMessageOfAnInvocation) {
    const SEL act = sel_registerName("act:");
    Object signature = Object(witness_.get()).send<"methodSignatureForSelector:", Object>(act);
    Object invocation = Object(classObject(objc_getClass("NSInvocation")))
                            .send<"invocationWithMethodSignature:", Object>(signature);
    invocation.send<"setTarget:">(Object(witness_.get()));
    invocation.send<"setSelector:">(act);
    sendClass<NSTimer, "scheduledTimerWithTimeInterval:invocation:repeats:", Object>(
        1.0, invocation, false);
    pass(1.1);
    EXPECT_EQ(calls(), Calls{"acted"});
}

// As documented: a timer fires once it is in a run loop, at its fire date.
TEST_F(Timers, ActInTheRunLoopThatTheyAreAddedTo) {
    Object timer = made(true);
    pass(2);
    EXPECT_EQ(calls(), Calls{});
    timer.send<"setFireDate:">(Object(classObject(objc_getClass("NSDate")))
                                   .send<"dateWithTimeIntervalSinceNow:", Object>(0.5));
    add(timer, "NSDefaultRunLoopMode"_ns);
    pass(0.4);
    EXPECT_EQ(calls(), Calls{});
    pass(0.2);
    EXPECT_EQ(calls().size(), 1u);
    pass(1);
    EXPECT_EQ(calls().size(), 2u);
    timer.send<"invalidate">();
    pass(2);
    EXPECT_EQ(calls().size(), 2u);
}

TEST_F(Timers, KnowWhenTheyFireNext) {
    Object timer = made(true);
    add(timer, "NSRunLoopCommonModes"_ns);
    auto left = [&] {
        return timer.send<"fireDate", Object>().send<"timeIntervalSinceNow", double>();
    };
    EXPECT_NEAR(left(), 1, 0.05);
    pass(0.75);
    EXPECT_NEAR(left(), 0.25, 0.05);
    pass(0.5);
    EXPECT_NEAR(left(), 0.75, 0.05);
    timer.send<"invalidate">();
}

// As documented: after the delay, in a later turn even without one, and not when cancelled.
TEST_F(Timers, DelayedMessagesArrive) {
    auto later = [&](double delay) {
        witness_.send<"performSelector:withObject:afterDelay:">(sel_registerName("act:"), Object(),
                                                                delay);
    };
    later(0);
    EXPECT_EQ(calls(), Calls{});
    pass(Clock::frame);
    EXPECT_EQ(calls().size(), 1u);
    later(1);
    pass(0.9);
    EXPECT_EQ(calls().size(), 1u);
    pass(0.2);
    EXPECT_EQ(calls().size(), 2u);
    later(1);
    Object(classObject(objc_getClass("NSObject")))
        .send<"cancelPreviousPerformRequestsWithTarget:">(Object(witness_.get()));
    pass(2);
    EXPECT_EQ(calls().size(), 2u);
}

}  // namespace

}  // namespace simulator::tests
