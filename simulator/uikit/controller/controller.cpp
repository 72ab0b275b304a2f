#include "simulator/uikit/controller/controller.hpp"

#include <algorithm>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr unsigned long flexibleWidthAndHeight = 2 | 16;
constexpr unsigned long allButUpsideDown = 2 | 8 | 16;

ControllerState& controllerState(UIViewController controller) {
    return stateOf<ControllerState>(controller);
}

void setView(UIViewController controller, UIView view) {
    ControllerState& state = controllerState(controller);
    if (state.view == view) return;
    if (view) requireKind<UIView>("-[UIViewController setView:]", view);
    if (view && viewState(view).controller) {
        raise("UIViewControllerHierarchyInconsistency"_ns,
              "A view can only be associated with at most one view controller at a time!");
    }
    if (state.view) viewState(state.view).controller = UIViewController();
    state.view = retained(view);
    if (view) {
        viewState(view).controller = controller;
        markNeedsLayout(view);
    }
}

// A view that is stored beforehand is never "loaded": neither loadView nor viewDidLoad run for it.
UIView viewOf(UIViewController controller) {
    ControllerState& state = controllerState(controller);
    if (!state.view) {
        controller.send<"loadView">();
        if (state.view) controller.send<"viewDidLoad">();
    }
    return state.view;
}

void setAppeared(UIViewController controller, bool appears) {
    ControllerState& state = controllerState(controller);
    if (state.appeared == appears) return;
    state.appeared = appears;
    if (appears) {
        controller.send<"viewWillAppear:">(false);
        controller.send<"viewDidAppear:">(false);
    } else {
        controller.send<"viewWillDisappear:">(false);
        controller.send<"viewDidDisappear:">(false);
    }
}

void updateAppearance(UIView view, bool visible) {
    if (UIViewController controller = viewState(view).controller) {
        Strong<UIViewController> kept = retained(controller);
        setAppeared(controller, visible);
    }
    auto subviews = viewState(view).subviews;
    for (auto& subview : subviews) updateAppearance(subview, visible);
}

void removeFromParent(UIViewController controller) {
    UIViewController parent = std::exchange(controllerState(controller).parent, {});
    if (!parent) return;
    auto& children = controllerState(parent).children;
    auto found = std::find(children.begin(), children.end(), controller);
    if (found == children.end()) return;
    Strong<UIViewController> kept = *found;
    children.erase(found);
}

using Controllers = std::vector<Strong<UIViewController>>;

void collect(UIView view, bool appeared, Controllers& found) {
    UIViewController controller = viewState(view).controller;
    if (controller && controllerState(controller).appeared == appeared) {
        found.push_back(retained(controller));
    }
    for (auto& subview : viewState(view).subviews) collect(subview, appeared, found);
}

// Of the view and of those below it, those that are on screen, or that are not.
Controllers controllersIn(UIView view, bool appeared) {
    Controllers found;
    if (view) collect(view, appeared, found);
    return found;
}

template <FixedString message>
void tellAll(const Controllers& controllers, bool animated) {
    for (auto& controller : controllers) controller.template send<message>(animated);
}

void setAppeared(const Controllers& controllers, bool appeared) {
    for (auto& controller : controllers) controllerState(controller).appeared = appeared;
}

// One comes while another goes: both are told before and after. `change` moves their views.
template <class Change>
void exchangeAppearance(const Controllers& going, const Controllers& coming, bool animated,
                        Change change) {
    tellAll<"viewWillDisappear:">(going, animated);
    tellAll<"viewWillAppear:">(coming, animated);
    setAppeared(going, false);
    setAppeared(coming, true);
    change();
    tellAll<"viewDidAppear:">(coming, animated);
    tellAll<"viewDidDisappear:">(going, animated);
}

// The view that a presentation over the whole screen covers, which is then taken out: that of the
// presenter's outermost parent. Other styles leave it.
UIView coveredBy(UIViewController presented, UIViewController presenting) {
    constexpr long fullScreen = 0;
    if (controllerState(presented).presentationStyle != fullScreen) return UIView();
    UIViewController outermost = presenting;
    while (controllerState(outermost).parent) outermost = controllerState(outermost).parent;
    UIView view = controllerState(outermost).view;
    return view && isVisible(windowOf(view)) && viewState(view).superview ? view : UIView();
}

void takeOut(UIViewController presenting, UIView view) {
    ControllerState& s = controllerState(presenting);
    s.covered = retained(view);
    s.coveredParent = retained(viewState(view).superview);
    const auto& siblings = viewState(s.coveredParent).subviews;
    s.coveredIndex = static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), view) -
                                              siblings.begin());
    removeFromSuperview(view);
}

void putBack(UIViewController presenting) {
    ControllerState& s = controllerState(presenting);
    Strong<UIView> view = std::exchange(s.covered, {});
    Strong<UIView> parent = std::exchange(s.coveredParent, {});
    if (!view || viewState(view).superview) return;
    // The window may have been turned meanwhile.
    if (parent.isKindOfClass(classOf<UIWindow>())) view.setFrame(valuesOf(parent).bounds);
    insertSubview(parent, view, s.coveredIndex);
}

void present(UIViewController presenting, UIViewController presented, bool animated,
             BlockRef<void()> completion) {
    UIWindow window = windowOf(viewOf(presenting));
    if (!window) window = keyWindow();
    controllerState(presenting).presented = retained(presented);
    controllerState(presented).presenting = presenting;
    UIView view = viewOf(presented);
    if (window && view) {
        view.setFrame(valuesOf(window).bounds);
        UIView covered = coveredBy(presented, presenting);
        const auto coming = isVisible(window) ? controllersIn(view, false) : Controllers();
        exchangeAppearance(controllersIn(covered, true), coming, animated, [&] {
            window.addSubview(view);
            if (covered) takeOut(presenting, covered);
        });
    }
    KeptBlock<void()>{completion}();
}

void dismiss(UIViewController controller, bool animated, BlockRef<void()> completion) {
    UIViewController presenting =
        controllerState(controller).presented ? controller : controllerState(controller).presenting;
    if (presenting) {
        Strong<UIViewController> presented =
            std::exchange(controllerState(presenting).presented, {});
        if (presented) {
            controllerState(presented).presenting = UIViewController();
            UIView view = viewOf(presented);
            UIView covered = controllerState(presenting).covered;
            const bool shows = isVisible(windowOf(view));
            exchangeAppearance(controllersIn(view, true),
                               shows ? controllersIn(covered, false) : Controllers(), animated,
                               [&] {
                                   putBack(presenting);
                                   removeFromSuperview(view);
                               });
        }
    }
    KeptBlock<void()>{completion}();
}

void addLoading(const Table<UIViewController>& controllers) {
    controllers
        .method<"initWithNibName:bundle:">(
            [](UIViewController self, NSString, Object) -> UIViewController {
                return super<UIViewController, "init", UIViewController>(self);
            })
        .method<"init">([](UIViewController self) -> UIViewController {
            return self.send<"initWithNibName:bundle:", UIViewController>(NSString(), Object());
        })
        .method<"view">([](UIViewController c) { return viewOf(c); })
        .method<"setView:">([](UIViewController c, UIView view) { setView(c, view); })
        .method<"viewIfLoaded">(
            [](UIViewController c) -> UIView { return controllerState(c).view; })
        .method<"isViewLoaded">(
            [](UIViewController c) -> bool { return static_cast<bool>(controllerState(c).view); })
        .method<"loadViewIfNeeded">([](UIViewController c) { viewOf(c); })
        .method<"loadView">([](UIViewController c) {
            auto view = create<UIView, "initWithFrame:">(screen().bounds());
            viewState(view).autoresizing = flexibleWidthAndHeight;
            c.send<"setView:">(static_cast<const UIView&>(view));
        })
        .method<"viewDidLoad">([](UIViewController) {})
        .method<"viewWillAppear:">([](UIViewController, bool) {})
        .method<"viewDidAppear:">([](UIViewController, bool) {})
        .method<"viewWillDisappear:">([](UIViewController, bool) {})
        .method<"viewDidDisappear:">([](UIViewController, bool) {})
        .method<"viewWillLayoutSubviews">([](UIViewController) {})
        .method<"viewDidLayoutSubviews">([](UIViewController) {})
        .method<"traitCollectionDidChange:">([](UIViewController, UITraitCollection) {})
        .method<"traitCollection">([](UIViewController c) {
            UIView view = controllerState(c).view;
            return traitsOf(view ? styleOf(view) : screen().style);
        })
        .method<"overrideUserInterfaceStyle">(
            [](UIViewController c) -> long { return controllerState(c).overrideStyle; })
        .method<"setOverrideUserInterfaceStyle:">([](UIViewController c, long style) {
            controllerState(c).overrideStyle = style;
            viewOf(c).send<"setOverrideUserInterfaceStyle:">(style);
        });
}

void addFamily(const Table<UIViewController>& controllers) {
    controllers
        .method<"childViewControllers">([](UIViewController c) -> NSArray {
            auto array = NSMutableArray::empty();
            for (auto& child : controllerState(c).children) array.add(child);
            return array;
        })
        .method<"children">(
            [](UIViewController c) { return c.send<"childViewControllers", NSArray>(); })
        .readonly<"parentViewController", &ControllerState::parent>()
        .method<"addChildViewController:">([](UIViewController c, UIViewController child) {
            requireKind<UIViewController>("-[UIViewController addChildViewController:]", child);
            Strong<UIViewController> kept = retained(child);
            child.send<"willMoveToParentViewController:">(c);
            removeFromParent(child);
            controllerState(child).parent = c;
            controllerState(c).children.push_back(kept);
        })
        .method<"removeFromParentViewController">([](UIViewController c) {
            Strong<UIViewController> kept = retained(c);
            removeFromParent(c);
            c.send<"didMoveToParentViewController:">(UIViewController());
        })
        .method<"willMoveToParentViewController:">([](UIViewController, UIViewController) {})
        .method<"didMoveToParentViewController:">([](UIViewController, UIViewController) {})
        .readonly<"presentedViewController", &ControllerState::presented>()
        .readonly<"presentingViewController", &ControllerState::presenting>()
        .method<"presentViewController:animated:completion:">([](UIViewController c,
                                                                 UIViewController presented,
                                                                 bool animated,
                                                                 BlockRef<void()> completion) {
            requireKind<UIViewController>("-[UIViewController presentViewController:]", presented);
            present(c, presented, animated, completion);
        })
        .method<"dismissViewControllerAnimated:completion:">(
            [](UIViewController c, bool animated, BlockRef<void()> completion) {
                dismiss(c, animated, completion);
            });
}

void addQuestions(const Table<UIViewController>& controllers) {
    controllers.property<"title", &ControllerState::title>()
        .property<"preferredContentSize", &ControllerState::preferredSize>()
        .property<"modalPresentationStyle", &ControllerState::presentationStyle>()
        .method<"supportedInterfaceOrientations">([](UIViewController) { return allButUpsideDown; })
        .method<"shouldAutorotate">([](UIViewController) -> bool { return true; })
        .method<"preferredInterfaceOrientationForPresentation">(
            [](UIViewController) -> long { return orientationPortrait; })
        .method<"interfaceOrientation">([](UIViewController) { return screen().orientation; })
        .method<"preferredStatusBarStyle">([](UIViewController) -> long { return 0; })
        .method<"prefersStatusBarHidden">([](UIViewController) -> bool { return false; })
        .method<"prefersHomeIndicatorAutoHidden">([](UIViewController) -> bool { return false; })
        .method<"setNeedsStatusBarAppearanceUpdate">([](UIViewController) {})
        .method<"_canShowWhileLocked">([](UIViewController) -> bool { return false; })
        .method<"nextResponder">([](UIViewController c) -> UIResponder {
            UIView view = controllerState(c).view;
            return view ? UIResponder(viewState(view).superview.get()) : UIResponder();
        });
}

}  // namespace

ControllerState::~ControllerState() {
    if (view) viewState(view).controller = UIViewController();
    for (auto& child : children) controllerState(child).parent = UIViewController();
    if (presented) controllerState(presented).presenting = UIViewController();
}

void appearanceMayHaveChanged(UIView view) { updateAppearance(view, isVisible(windowOf(view))); }

void registerController() {
    auto controllers = table<UIViewController, UIResponder, ControllerState>();
    addLoading(controllers);
    addFamily(controllers);
    addQuestions(controllers);
}

}  // namespace simulator
