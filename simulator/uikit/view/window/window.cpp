#include "simulator/uikit/view/window/window.hpp"

#include <algorithm>

#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct WindowState {
    double level;
    unsigned long shown;  // order of showing; 0 while never shown
    Strong<UIViewController> root;

    ~WindowState();
};

struct Windows {
    std::vector<UIWindow> all;  // in the order of creation
    UIWindow key;
    unsigned long order = 0;
};

Windows& windows() {
    static auto& shared = *new Windows;
    return shared;
}

WindowState& stateOfWindow(UIWindow window) { return stateOf<WindowState>(window); }

WindowState::~WindowState() {
    std::erase_if(windows().all, [&](UIWindow w) { return &stateOfWindow(w) == this; });
    if (windows().key && &stateOfWindow(windows().key) == this) windows().key = UIWindow();
}

void post(const char* name, UIWindow window) {
    NSNotificationCenter::defaultCenter().send<"postNotificationName:object:">(NSString::from(name),
                                                                               window);
}

void bringToFrontOfLevel(UIWindow window) { stateOfWindow(window).shown = ++windows().order; }

void setHidden(UIWindow window, bool hidden) {
    if (valuesOf(window).hidden == hidden) return;
    valuesOf(window).hidden = hidden;
    if (!hidden) bringToFrontOfLevel(window);
    markNeedsLayout(window);
    appearanceMayHaveChanged(window);
    post(hidden ? "UIWindowDidBecomeHiddenNotification" : "UIWindowDidBecomeVisibleNotification",
         window);
}

void makeKey(UIWindow window) {
    UIWindow old = std::exchange(windows().key, window);
    if (old == window) return;
    if (old) {
        old.send<"resignKeyWindow">();
        post("UIWindowDidResignKeyNotification", old);
    }
    window.send<"becomeKeyWindow">();
    post("UIWindowDidBecomeKeyNotification", window);
}

void sortBackToFront(std::vector<Strong<UIWindow>>& all) {
    std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) {
        const auto& left = stateOfWindow(a);
        const auto& right = stateOfWindow(b);
        return std::pair(left.level, left.shown) < std::pair(right.level, right.shown);
    });
}

// Sized to the window. A view that lies elsewhere moves to the back of the window; one that the window
// has already keeps its place among the others.
void install(UIWindow window, UIViewController controller) {
    UIView view = controller.view();
    if (!view) return;
    view.setFrame(valuesOf(window).bounds);
    viewState(view).autoresizing = 2 | 16;  // flexible width and height
    if (viewState(view).superview != window) insertSubview(window, view, 0);
}

void setRoot(UIWindow window, UIViewController controller) {
    Strong<UIViewController>& root = stateOfWindow(window).root;
    if (root == controller) return;
    Strong<UIViewController> old = std::exchange(root, retained(controller));
    if (old && old.send<"isViewLoaded", bool>()) {
        UIView view = old.view();
        if (viewState(view).superview == window) removeFromSuperview(view);
    }
    if (controller) install(window, controller);
}

}  // namespace

std::vector<Strong<UIWindow>> allWindows() {
    std::vector<Strong<UIWindow>> all;
    for (UIWindow window : windows().all) all.push_back(retained(window));
    return all;
}

bool isVisible(UIWindow window) { return window && !valuesOf(window).hidden; }

std::vector<Strong<UIWindow>> applicationWindows() {
    auto all = allWindows();
    sortBackToFront(all);
    return all;
}

std::vector<Strong<UIWindow>> windowsBackToFront() {
    auto all = allWindows();
    std::erase_if(all, [](const Strong<UIWindow>& w) { return !isVisible(w); });
    sortBackToFront(all);
    return all;
}

UIWindow keyWindow() { return windows().key; }

void registerWindow() {
    table<UIWindow, UIView, WindowState>()
        .classMethod<"_isSecure">([](Class) -> bool { return false; })
        .method<"_isSecure">([](UIWindow) -> bool { return false; })
        .method<"init">([](UIWindow self) -> UIWindow {
            return self.send<"initWithFrame:", UIWindow>(screen().bounds());
        })
        .method<"initWithFrame:">([](UIWindow self, CGRect frame) -> UIWindow {
            auto window = super<UIWindow, "initWithFrame:", UIWindow>(self, frame);
            if (!window) return window;
            valuesOf(window).hidden = true;
            windows().all.push_back(window);
            return window;
        })
        .property<"windowLevel", &WindowState::level>()
        .method<"setHidden:">([](UIWindow w, bool hidden) { setHidden(w, hidden); })
        .method<"makeKeyAndVisible">([](UIWindow w) {
            bringToFrontOfLevel(w);
            w.setHidden(false);
            w.send<"makeKeyWindow">();
        })
        .method<"makeKeyWindow">([](UIWindow w) { makeKey(w); })
        .method<"becomeKeyWindow">([](UIWindow) {})
        .method<"resignKeyWindow">([](UIWindow) {})
        .method<"isKeyWindow">([](UIWindow w) -> bool { return windows().key == w; })
        .method<"screen">([](UIWindow) { return UIScreen::mainScreen(); })
        .method<"rootViewController">(
            [](UIWindow w) -> UIViewController { return stateOfWindow(w).root; })
        .method<"setRootViewController:">(
            [](UIWindow w, UIViewController controller) { setRoot(w, controller); })
        .method<"nextResponder">([](UIWindow) -> Object {
            return sendClass<UIApplication, "sharedApplication", Object>();
        });
}

}  // namespace simulator
