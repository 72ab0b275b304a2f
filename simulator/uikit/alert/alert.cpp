#include "simulator/uikit/alert/alert.hpp"

#include <vector>

#include "simulator/uikit/screen/screen.hpp"
#include "simulator/uikit/view/control/control.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

constexpr double panelWidth = 270, rowHeight = 44, margin = 16;  // points
constexpr double alertLevel = 2000;                              // UIWindowLevelAlert

struct AlertState {
    Copied<NSString> title, message;
    Object delegate;  // not owned
    std::vector<Strong<NSString>> buttons;
    Strong<UIWindow> window;
    bool hasCancel;
    long cancelButtonIndex;
};

AlertState& alert(UIAlertView view) { return stateOf<AlertState>(view); }

long addButton(UIAlertView view, NSString title) {
    auto& buttons = alert(view).buttons;
    buttons.push_back(Copied<NSString>(title));
    return static_cast<long>(buttons.size()) - 1;
}

double addText(UIView panel, NSString text, double y, double size) {
    if (!text) return y;
    auto label = create<UILabel>();
    label.send<"setText:">(text);
    label.send<"setTextAlignment:">(1L);
    label.send<"setNumberOfLines:">(0L);
    label.send<"setFont:">(sendClass<UIFont, "systemFontOfSize:", UIFont>(size));
    double width = panelWidth - 2 * margin;
    double height = label.send<"sizeThatFits:", CGSize>(CGSize{width, 0}).height;
    label.setFrame(rect(margin, y, width, height));
    panel.addSubview(label);
    return y + height + margin / 2;
}

double addButtons(UIAlertView view, UIView panel, double y) {
    const auto& buttons = alert(view).buttons;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        auto button = sendClass<UIButton, "buttonWithType:", UIButton>(1L);
        viewState(button).tag = static_cast<long>(i);
        button.send<"setTitle:forState:">(static_cast<const NSString&>(buttons[i]), 0UL);
        button.send<"addTarget:action:forControlEvents:">(
            view, selector<"_pressed:">(), static_cast<unsigned long>(touchUpInside));
        button.setFrame(rect(0, y, panelWidth, rowHeight));
        panel.addSubview(button);
        y += rowHeight;
    }
    return y;
}

void show(UIAlertView view) {
    AlertState& s = alert(view);
    if (s.window) return;
    CGRect bounds = screen().bounds();
    s.window = create<UIWindow, "initWithFrame:">(bounds);
    s.window.setWindowLevel(alertLevel);
    s.window.setBackgroundColor(makeColor({0, 0, 0, 0.3}));
    view.setBackgroundColor(makeColor({0.97, 0.97, 0.97, 1}, {0.17, 0.17, 0.18, 1}));
    layerState(layerOf(view)).values.cornerRadius = 13;
    double y = addText(view, s.title, margin, 17);
    y = addText(view, s.message, y, 13);
    y = addButtons(view, view, y + margin / 2);
    view.setFrame(
        rect((bounds.size.width - panelWidth) / 2, (bounds.size.height - y) / 2, panelWidth, y));
    s.window.addSubview(view);
    s.window.setHidden(false);
}

void dismiss(UIAlertView view, long index) {
    Strong<UIAlertView> kept = retained(view);
    Strong<UIWindow> window = std::exchange(alert(view).window, {});
    if (!window) return;
    removeFromSuperview(view);
    window.setHidden(true);
    Object delegate = alert(view).delegate;
    if (delegate.respondsTo(selector<"alertView:clickedButtonAtIndex:">())) {
        delegate.send<"alertView:clickedButtonAtIndex:">(view, index);
    }
    if (delegate.respondsTo(selector<"alertView:didDismissWithButtonIndex:">())) {
        delegate.send<"alertView:didDismissWithButtonIndex:">(view, index);
    }
}

// The list of other buttons is variadic on the platform; the first of them travels like any
// argument, more are added one by one.
UIAlertView initialise(UIAlertView self, NSString title, NSString message, Object delegate,
                       NSString cancel, NSString other) {
    auto view = self.send<"initWithFrame:", UIAlertView>(CGRect{});
    if (!view) return view;
    AlertState& s = alert(view);
    s.title = Copied<NSString>(title);
    s.message = Copied<NSString>(message);
    s.delegate = delegate;
    s.hasCancel = static_cast<bool>(cancel);
    if (cancel) addButton(view, cancel);
    if (other) addButton(view, other);
    return view;
}

struct ActionState {
    Copied<NSString> title;
    KeptBlock<void(Object)> handler;
    long style;
};
struct AlertControllerState {
    Copied<NSString> message;
    std::vector<Strong<UIAlertAction>> actions;
    Strong<UIAlertView> panel;
    long style;
};

AlertControllerState& alertController(UIAlertController c) {
    return stateOf<AlertControllerState>(c);
}

void showPanel(UIAlertController c) {
    AlertControllerState& s = alertController(c);
    s.panel = create<UIAlertView>();
    AlertState& panel = alert(s.panel);
    panel.title = Copied<NSString>(c.send<"title", NSString>());
    panel.message = s.message;
    panel.delegate = c;
    for (auto& action : s.actions) addButton(s.panel, stateOf<ActionState>(action).title);
    show(s.panel);
}

void registerAlertController() {
    table<UIAlertAction, Object, ActionState>()
        .classMethod<"actionWithTitle:style:handler:">(
            [](Class, NSString title, long style, BlockRef<void(Object)> handler) {
                auto action = create<UIAlertAction>();
                ActionState& s = stateOf<ActionState>(action);
                s.title = Copied<NSString>(title);
                s.style = style;
                s.handler = KeptBlock<void(Object)>(handler);
                return action.autoreleased();
            })
        .readonly<"title", &ActionState::title>()
        .readonly<"style", &ActionState::style>();
    table<UIAlertController, UIViewController, AlertControllerState>()
        .classMethod<"alertControllerWithTitle:message:preferredStyle:">(
            [](Class, NSString title, NSString message, long style) {
                auto made = create<UIAlertController>();
                made.send<"setTitle:">(title);
                alertController(made).message = Copied<NSString>(message);
                alertController(made).style = style;
                return made.autoreleased();
            })
        .property<"message", &AlertControllerState::message>()
        .readonly<"preferredStyle", &AlertControllerState::style>()
        .method<"addAction:">([](UIAlertController c, UIAlertAction action) {
            alertController(c).actions.push_back(retained(action));
        })
        .method<"viewDidAppear:">([](UIAlertController c, bool) { showPanel(c); })
        .method<"alertView:clickedButtonAtIndex:">([](UIAlertController c, UIAlertView, long i) {
            Strong<UIAlertController> kept = retained(c);
            auto& actions = alertController(c).actions;
            c.send<"dismissViewControllerAnimated:completion:">(false, BlockRef<void()>());
            alertController(c).panel = {};
            if (i < 0 || static_cast<std::size_t>(i) >= actions.size()) return;
            Strong<UIAlertAction> action = actions[static_cast<std::size_t>(i)];
            auto handler = stateOf<ActionState>(action).handler;
            handler(Object(action));
        });
}

}  // namespace

void registerAlerts() {
    table<UIAlertView, UIView, AlertState>()
        .method<"initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:">(
            [](UIAlertView self, NSString title, NSString message, Object delegate, NSString cancel,
               NSString other) {
                return initialise(self, title, message, delegate, cancel, other);
            })
        .method<"addButtonWithTitle:">(
            [](UIAlertView v, NSString title) { return addButton(v, title); })
        .property<"title", &AlertState::title>()
        .property<"message", &AlertState::message>()
        .property<"delegate", &AlertState::delegate>()
        .property<"cancelButtonIndex", &AlertState::cancelButtonIndex>()
        .method<"numberOfButtons">(
            [](UIAlertView v) { return static_cast<long>(alert(v).buttons.size()); })
        .method<"isVisible">([](UIAlertView v) { return static_cast<bool>(alert(v).window); })
        .method<"show">([](UIAlertView v) { show(v); })
        .method<"_pressed:">(
            [](UIAlertView v, UIView button) { dismiss(v, viewState(button).tag); })
        .method<"dismissWithClickedButtonIndex:animated:">(
            [](UIAlertView v, long index, bool) { dismiss(v, index); });
    registerAlertController();
}

}  // namespace simulator
