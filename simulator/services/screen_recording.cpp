#include "simulator/services/screen_recording.hpp"

#include "platform/control_center.hpp"
#include "simulator/foundation/bundles.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/services/module_contents.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

struct RecordingState {
    Strong<UIView> menu;
    bool unavailable;
    bool recording;
};

constexpr double dimmed = 0.35;
constexpr unsigned long touchUpInside = 64;

RecordingState& stateIn(RPControlCenterModuleViewController self) {
    return stateOf<RecordingState>(self);
}

CCUIButtonModuleViewController asButton(RPControlCenterModuleViewController self) {
    return CCUIButtonModuleViewController(self.get());
}

void paint(RPControlCenterModuleViewController self) {
    UIImageView symbol = symbolView(asButton(self));
    if (!symbol) return;
    symbol.setAlpha(self.send<"available", bool>() ? 1 : dimmed);
    symbol.send<"setTintColor:">(stateIn(self).recording ? UIColor::rgba(1, 0.23, 0.19, 1)
                                                         : UIColor::white());
}

void loadView(RPControlCenterModuleViewController self) {
    setSymbol(asButton(self), "record");
    super<RPControlCenterModuleViewController, "loadView">(self);
    UIView view = self.view();
    if (view.isKindOfClass(classOf<UIControl>())) {
        view.send<"addTarget:action:forControlEvents:">(self, selector<"buttonTapped:">(),
                                                        touchUpInside);
    }
    paint(self);
}

bool available(RPControlCenterModuleViewController self) { return !stateIn(self).unavailable; }

void setAvailable(RPControlCenterModuleViewController self, bool yes) {
    RecordingState& state = stateIn(self);
    state.unavailable = !yes;
    if (!yes) state.recording = false;
    if (self.send<"isViewLoaded", bool>()) paint(self);
}

bool isRecording(RPControlCenterModuleViewController self) { return stateIn(self).recording; }

void buttonTapped(RPControlCenterModuleViewController self, Object) {
    if (!self.send<"available", bool>()) return;
    bool& recording = stateIn(self).recording;
    recording = !recording;
    paint(self);
}

// Title, line, the one entry.
Strong<UIView> makeMenu(RPControlCenterModuleViewController self, CGSize size) {
    constexpr long centred = 1;
    auto menu = create<UIView, "initWithFrame:">(rect(0, 0, size.width, size.height));
    menu.setUserInteractionEnabled(false);
    auto title = makeModuleLabel("Screen Recording"_ns, 17, 1, centred);
    title.setFrame(rect(0, size.height - 100, size.width, 24));
    addPart(menu, title);
    auto line = create<UIView, "initWithFrame:">(rect(0, size.height - 62, size.width, 0.5));
    line.setBackgroundColor(UIColor::rgba(1, 1, 1, 0.2));
    addPart(menu, line);
    NSString text = stateIn(self).recording ? "Stop Recording"_ns : "Start Recording"_ns;
    auto entry = makeModuleLabel(text, 17, self.send<"available", bool>() ? 1 : dimmed, centred);
    entry.setFrame(rect(0, size.height - 44, size.width, 24));
    addPart(menu, entry);
    return menu;
}

void willTransition(RPControlCenterModuleViewController self, bool expanded) {
    RecordingState& state = stateIn(self);
    if (state.menu) state.menu.removeFromSuperview();
    state.menu = {};
    if (!expanded) return;
    state.menu = makeMenu(self, {self.send<"preferredExpandedContentWidth", double>(),
                                 self.send<"preferredExpandedContentHeight", double>()});
    addPart(self.view(), state.menu);
}

void registerScreenRecording() {
    standIn<RPControlCenterModuleViewController, CCUIMenuModuleViewController, RecordingState>()
        .method<"loadView", &loadView>()
        .method<"available", &available>()
        .method<"setAvailable:", &setAvailable>()
        .method<"isRecording", &isRecording>()
        .method<"buttonTapped:", &buttonTapped>()
        .method<"willTransitionToExpandedContentMode:", &willTransition>();
}

}  // namespace

Strong<UIViewController> makeRecordingModule(const ModuleKind&) {
    return create<RPControlCenterModuleViewController>();
}

void announceScreenRecording() {
    onBundleLoad("/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle",
                 &registerScreenRecording);
}

}  // namespace simulator
