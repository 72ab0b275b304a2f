#include "pages/module_round_button.hpp"

#include "pages/module_expansion.hpp"
#include "platform/control_center.hpp"
#include "platform/definition.hpp"
#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"

namespace vantori {

namespace {

struct NSTimer : Object {
    static constexpr FixedString name{"NSTimer"};
    using Object::Object;
};

struct UILongPressGestureRecognizer : UIGestureRecognizer {
    static constexpr FixedString name{"UILongPressGestureRecognizer"};
    using UIGestureRecognizer::UIGestureRecognizer;
};

struct State {
    Strong<UIViewController> contextController;
    Strong<UIView> backgroundView;
    Strong<UIView> previousSuper;
    Strong<NSString> moduleIdentifier;
    Strong<UIView> toggleView;
    Strong<Object> module;
    double expandedHeight;
    double expandedWidth;
    CGRect contentFrame;
};

// Control Center needs so long, in seconds, before it can show a module.
constexpr double preparation = 0.15;
constexpr double preparationBefore13 = 0.3;

State& stateIn(VNTCCToggleRoundButton self) { return stateOf<State>(self); }

bool isScreenRecording(Object controller) {
    return controller.isKindOfClass(classOf<RPControlCenterModuleViewController>());
}

// Leaves the sizes as they are when the controller has none to prefer.
void takePreferredSize(State& state, UIViewController controller) {
    if (!controller.respondsTo(selector<"preferredExpandedContentWidth">())) return;
    state.expandedWidth = controller.send<"preferredExpandedContentWidth", double>();
    state.expandedHeight = controller.send<"preferredExpandedContentHeight", double>();
}

// One more recogniser at every move to or from a window. Deliberate.
void didMoveToWindow(VNTCCToggleRoundButton self) {
    super<VNTCCToggleRoundButton, "didMoveToWindow">(self);
    auto press = create<UILongPressGestureRecognizer, "initWithTarget:action:">(
        Object(self), selector<"handleLongPressGesture:">());
    self.addGestureRecognizer(press);
}

// One more observer at every change of the frame, too. Deliberate.
void setFrame(VNTCCToggleRoundButton self, CGRect frame) {
    super<VNTCCToggleRoundButton, "setFrame:">(self, frame);
    observe(self, selector<"enableToggle">(), local::finishLaunching());
    self.layer().setCornerRadius(frame.size.height * 0.5);
    NSArray subviews = self.subviews();
    if (subviews.count() == 1) subviews.at<UIView>(0).setFrame(self.bounds());
    self.layer().setMasksToBounds(true);
}

void addToggleView(VNTCCToggleRoundButton self, UIView view) {
    State& state = stateIn(self);
    state.previousSuper = retained(view.superview());
    self.addSubview(view);
    state.toggleView = retained(view);
}

void ccBack(VNTCCToggleRoundButton self) {
    const State& state = stateIn(self);
    state.previousSuper.addSubview(state.toggleView);
}

void refreshToggle(VNTCCToggleRoundButton self) {
    UIView toggle = stateIn(self).toggleView;
    toggle.setFrame(self.bounds());
    self.addSubview(toggle);
}

void layoutSubviews(VNTCCToggleRoundButton self) {
    super<VNTCCToggleRoundButton, "layoutSubviews">(self);
    State& state = stateIn(self);
    takePreferredSize(state, state.contextController);
}

UIViewController viewControllerForContext(VNTCCToggleRoundButton self) {
    return stateIn(self).contextController;
}

void setViewControllerForContext(VNTCCToggleRoundButton self, UIViewController controller) {
    State& state = stateIn(self);
    if (isScreenRecording(controller)) {
        as<RPControlCenterModuleViewController>(controller).setAvailable(true);
    }
    takePreferredSize(state, controller);
    state.contextController = retained(controller);
}

void enableToggle(VNTCCToggleRoundButton self) {
    const State& state = stateIn(self);
    if (isScreenRecording(state.contextController)) {
        as<RPControlCenterModuleViewController>(state.contextController).setAvailable(true);
        state.toggleView.sendIfAnswered<"setGlyphState:">("Base State"_ns);
    }
    NSNotificationCenter::defaultCenter().send<"removeObserver:name:object:">(
        self, local::finishLaunching(), Object());
}

// A press expands when it begins. One that is possible or cancelled does so too. Deliberate.
void handleLongPressGesture(VNTCCToggleRoundButton self, UIGestureRecognizer press) {
    switch (press.state()) {
        case UIGestureRecognizer::changed:
        case UIGestureRecognizer::ended:
        case UIGestureRecognizer::failed:
            return;
        default:
            self.expandModule();
    }
}

void giveHaptic() {
    create<UIImpactFeedbackGenerator, "initWithStyle:">(UIImpactFeedbackGenerator::medium)
        .impactOccurred();
}

void expandModule(VNTCCToggleRoundButton self) {
    const Strong<NSString>& module = stateIn(self).moduleIdentifier;
    const ModuleExpansion& expansion = moduleExpansion();
    expansion.prepare(module);
    const double delay = isSystem13OrLater() ? preparation : preparationBefore13;
    auto show = block<void(Object)>([&expansion, module](Object) {
        giveHaptic();
        expansion.show(module);
    });
    BlockRef<void(Object)> shown = show;
    sendClass<NSTimer, "scheduledTimerWithTimeInterval:repeats:block:", Object>(delay, false,
                                                                                shown);
}

}  // namespace

void registerModuleRoundButton() {
    define<VNTCCToggleRoundButton, UIView, State>()
        .method<"didMoveToWindow", &didMoveToWindow>()
        .method<"setFrame:", &setFrame>()
        .method<"addToggleView:", &addToggleView>()
        .method<"ccBack", &ccBack>()
        .method<"refreshToggle", &refreshToggle>()
        .method<"layoutSubviews", &layoutSubviews>()
        .method<"viewControllerForContext", &viewControllerForContext>()
        .method<"setViewControllerForContext:", &setViewControllerForContext>()
        .method<"enableToggle", &enableToggle>()
        .method<"handleLongPressGesture:", &handleLongPressGesture>()
        .method<"expandModule", &expandModule>()
        .property<"backgroundView", &State::backgroundView>()
        .property<"previousSuper", &State::previousSuper>()
        .property<"moduleIdentifier", &State::moduleIdentifier>()
        .property<"toggleView", &State::toggleView>()
        .property<"expandedHeight", &State::expandedHeight>()
        .property<"expandedWidth", &State::expandedWidth>()
        .property<"contentFrame", &State::contentFrame>()
        .property<"module", &State::module>();
}

}  // namespace vantori
