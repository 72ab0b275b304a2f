#include "simulator/services/connectivity.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "platform/control_center.hpp"
#include "simulator/foundation/bundles.hpp"
#include "simulator/hardware/configuration.hpp"
#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/services/module_contents.hpp"
#include "simulator/services/radios.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(CCUILabeledRoundButtonViewController, UIViewController);
VANTORI_CLASS(CCUIConnectivityButtonViewController, CCUILabeledRoundButtonViewController);
VANTORI_CLASS(CCUIConnectivityAirplaneViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityCellularDataViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityHotspotViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityWifiViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityBluetoothViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityModuleViewController, UIViewController);

// A button of the module: its radio, its symbol, its title and the colour of its disc while on.
struct ConnectivityButton {
    const char* className;
    Radio radio;
    const char* symbol;
    const char* title;
    std::array<double, 3> colour;  // 0 to 255
};

constexpr const char* moduleBundle =
    "/System/Library/ControlCenter/Bundles/ConnectivityModule.bundle";
constexpr double glyphSide = 24;  // points
constexpr long centred = 1;       // text alignment

struct RoundButtonState;

// Every round button there is, so that all follow when a radio changes.
std::vector<RoundButtonState*>& roundButtons() {
    static auto& all = *new std::vector<RoundButtonState*>;
    return all;
}

struct RoundButtonState {
    Strong<UIImageView> glyph;
    Strong<UIImageView> selectedGlyph;
    const ConnectivityButton* kind;
    CCUIRoundButton self;  // not owned
    ~RoundButtonState() { std::erase(roundButtons(), this); }
};
struct LabeledButtonState {
    Strong<CCUIRoundButton> button;
    Strong<UILabel> title;
    Strong<UILabel> subtitle;
};

constexpr ConnectivityButton buttons[]{
    {"CCUIConnectivityAirplaneViewController",
     Radio::airplane,
     "airplane",
     "Airplane Mode",
     {255, 149, 0}},
    {"CCUIConnectivityCellularDataViewController",
     Radio::cellular,
     "cellular",
     "Cellular Data",
     {52, 199, 89}},
    {"CCUIConnectivityHotspotViewController",
     Radio::hotspot,
     "hotspot",
     "Personal Hotspot",
     {52, 199, 89}},
    {"CCUIConnectivityWifiViewController", Radio::wifi, "wifi", "Wi-Fi", {10, 132, 255}},
    {"CCUIConnectivityBluetoothViewController",
     Radio::bluetooth,
     "bluetooth",
     "Bluetooth",
     {10, 132, 255}},
};

const ConnectivityButton* buttonKind(id controller) {
    std::string_view name = class_getName(object_getClass(controller));
    for (const ConnectivityButton& button : buttons) {
        if (name == button.className) return &button;
    }
    return nullptr;
}

CGSize intrinsicContentSize(CCUIRoundButton) { return configuration().connectivityButton; }

UIImageView glyphImageView(CCUIRoundButton self) { return stateOf<RoundButtonState>(self).glyph; }

UIImageView selectedGlyphView(CCUIRoundButton self) {
    return stateOf<RoundButtonState>(self).selectedGlyph;
}

void paint(const RoundButtonState& state) {
    const bool on = isOn(state.kind->radio);
    const auto [red, green, blue] = state.kind->colour;
    state.self.setBackgroundColor(on ? UIColor::rgba(red / 255, green / 255, blue / 255, 1)
                                     : UIColor::rgba(0.5, 0.5, 0.5, 0.35));
    if (state.glyph) state.glyph.setAlpha(on ? 0 : 1);
    if (state.selectedGlyph) state.selectedGlyph.setAlpha(on ? 1 : 0);
    as<UIControl>(state.self).send<"setSelected:">(on);
}

void sayState(CCUILabeledRoundButton self) {
    LabeledButtonState& state = stateOf<LabeledButtonState>(self);
    if (!state.button || !state.subtitle) return;
    const RoundButtonState& button = stateOf<RoundButtonState>(state.button);
    state.subtitle.send<"setText:">(isOn(button.kind->radio) ? "On"_ns : "Off"_ns);
}

void paintAll() {
    for (RoundButtonState* state : roundButtons()) {
        paint(*state);
        sayState(CCUILabeledRoundButton(state->self.superview().get()));
    }
}

// A disc with the glyph over its middle half.
void layoutRoundButton(CCUIRoundButton self) {
    super<CCUIRoundButton, "layoutSubviews">(self);
    CGSize size = self.bounds().size;
    double shorter = std::min(size.width, size.height);
    self.layer().setCornerRadius(shorter / 2);
    CGRect middle = rect((size.width - shorter / 2) / 2, (size.height - shorter / 2) / 2,
                         shorter / 2, shorter / 2);
    RoundButtonState& state = stateOf<RoundButtonState>(self);
    if (state.glyph) state.glyph.setFrame(middle);
    if (state.selectedGlyph) state.selectedGlyph.setFrame(middle);
}

// In the tint of whatever the button stands in: the module's own is white.
Strong<UIImageView> makeGlyph(const char* symbol) {
    auto glyph = makeSymbolView(symbol, glyphSide);
    glyph.send<"setTintColor:">(UIColor());
    return glyph;
}

Strong<CCUIRoundButton> makeRoundButton(const ConnectivityButton& kind) {
    CGSize size = configuration().connectivityButton;
    auto button = create<CCUIRoundButton, "initWithFrame:">(rect(0, 0, size.width, size.height));
    if (!button) return button;
    RoundButtonState& state = stateOf<RoundButtonState>(button);
    state.kind = &kind;
    state.self = button;
    state.glyph = makeGlyph(kind.symbol);
    state.selectedGlyph = makeGlyph(kind.symbol);
    addPart(button, state.glyph);
    addPart(button, state.selectedGlyph);
    roundButtons().push_back(&state);
    paint(state);
    return button;
}

CCUIRoundButton buttonView(CCUILabeledRoundButton self) {
    return stateOf<LabeledButtonState>(self).button;
}

// Its titles, where it has them, stand below the button and may reach beyond the view.
void layoutLabeledButton(CCUILabeledRoundButton self) {
    super<CCUILabeledRoundButton, "layoutSubviews">(self);
    const LabeledButtonState& state = stateOf<LabeledButtonState>(self);
    CGSize size = self.bounds().size;
    if (state.button) state.button.setFrame(self.bounds());
    constexpr double width = 130, line = 18, gap = 6;
    double left = (size.width - width) / 2;
    if (state.title) state.title.setFrame(rect(left, size.height + gap, width, line));
    if (state.subtitle) state.subtitle.setFrame(rect(left, size.height + gap + line, width, line));
}

bool labelsVisible(CCUILabeledRoundButton self) {
    return bool(stateOf<LabeledButtonState>(self).title);
}

void setLabelsVisible(CCUILabeledRoundButton self, bool visible) {
    LabeledButtonState& state = stateOf<LabeledButtonState>(self);
    if (visible == labelsVisible(self) || !state.button) return;
    if (!visible) {
        state.title.removeFromSuperview();
        state.subtitle.removeFromSuperview();
        state.title = {};
        state.subtitle = {};
        return;
    }
    const RoundButtonState& button = stateOf<RoundButtonState>(state.button);
    state.title = makeModuleLabel(NSString::from(button.kind->title), 13, 1, centred);
    state.subtitle = makeModuleLabel(""_ns, 13, 0.6, centred);
    addPart(self, state.title);
    addPart(self, state.subtitle);
    sayState(self);
}

// On real systems what a controller's view is was not seen, only that the button's container has a name
// of its own: there it stands in a plain view. On other phones it is the view.
void setButtonView(CCUILabeledRoundButtonViewController self, UIView container) {
    if (!self.respondsTo(selector<"buttonContainer">()) || !container) {
        self.send<"setView:">(container);
        return;
    }
    auto view = create<UIView, "initWithFrame:">(container.bounds());
    container.setAutoresizingMask(flexibleSize);
    addPart(view, container);
    self.send<"setView:">(view);
}

// Empty when there is none. Loads the view.
CCUILabeledRoundButton buttonContainer(CCUILabeledRoundButtonViewController self) {
    UIView view = self.view();
    if (view.isKindOfClass(classOf<CCUILabeledRoundButton>()))
        return as<CCUILabeledRoundButton>(view);
    NSArray parts = view.subviews();
    UIView first = parts.count() > 0 ? parts.at<UIView>(0) : UIView();
    const bool labeled = first.isKindOfClass(classOf<CCUILabeledRoundButton>());
    return labeled ? as<CCUILabeledRoundButton>(first) : CCUILabeledRoundButton();
}

void loadView(CCUILabeledRoundButtonViewController self) {
    constexpr unsigned long touchUpInside = 64;
    CGSize size = configuration().connectivityButton;
    auto view =
        create<CCUILabeledRoundButton, "initWithFrame:">(rect(0, 0, size.width, size.height));
    const ConnectivityButton* kind = buttonKind(self.get());
    if (view && kind) {
        auto button = makeRoundButton(*kind);
        button.send<"addTarget:action:forControlEvents:">(self, selector<"buttonTapped:">(),
                                                          touchUpInside);
        addPart(view, button);
        stateOf<LabeledButtonState>(view).button = std::move(button);
    }
    setButtonView(self, view);
}

CCUIRoundButton button(CCUILabeledRoundButtonViewController self) {
    CCUILabeledRoundButton container = buttonContainer(self);
    return container ? buttonView(container) : CCUIRoundButton();
}

void buttonTapped(CCUILabeledRoundButtonViewController self, Object) {
    const ConnectivityButton* kind = buttonKind(self.get());
    if (kind) switchRadio(kind->radio, !isOn(kind->radio));
}

// The module in Control Center: four buttons, and all five with their titles when it is expanded.
struct ModuleState {
    std::vector<Strong<CCUIConnectivityButtonViewController>> buttons;
    bool expanded;
};

template <class T>
void addButton(CCUIConnectivityModuleViewController self) {
    Strong<T> button = create<T>();
    if (!button) return;
    self.send<"addChildViewController:">(button);
    addPart(self.view(), button.view());
    stateOf<ModuleState>(self).buttons.push_back(std::move(button));
}

// In the order of the expanded module; the compact one has no room for the last.
void moduleDidLoad(CCUIConnectivityModuleViewController self) {
    super<CCUIConnectivityModuleViewController, "viewDidLoad">(self);
    self.view().send<"setTintColor:">(UIColor::white());
    addButton<CCUIConnectivityAirplaneViewController>(self);
    addButton<CCUIConnectivityCellularDataViewController>(self);
    addButton<CCUIConnectivityWifiViewController>(self);
    addButton<CCUIConnectivityBluetoothViewController>(self);
    addButton<CCUIConnectivityHotspotViewController>(self);
}

void layoutModule(CCUIConnectivityModuleViewController self) {
    super<CCUIConnectivityModuleViewController, "viewDidLayoutSubviews">(self);
    const ModuleState& state = stateOf<ModuleState>(self);
    constexpr std::size_t columns = 2, compactRows = 2, expandedRows = 3;
    constexpr double labelHeight = 42;  // below a button, in points
    CGSize size = self.view().bounds().size;
    const std::size_t rows = state.expanded ? expandedRows : compactRows;
    const double width = size.width / columns, height = size.height / static_cast<double>(rows);
    const double side = state.expanded ? 58 : std::min(width, height) * 0.74;
    const double lift = state.expanded ? labelHeight : 0;
    for (std::size_t i = 0; i < state.buttons.size(); ++i) {
        UIView button = state.buttons[i].view();
        const double column = static_cast<double>(i % columns),
                     row = static_cast<double>(i / columns);
        button.setAlpha(i < columns * rows ? 1 : 0);
        button.setFrame(rect(column * width + (width - side) / 2,
                             row * height + (height - side - lift) / 2, side, side));
    }
}

double moduleExpandedWidth(CCUIConnectivityModuleViewController) { return 300; }
double moduleExpandedHeight(CCUIConnectivityModuleViewController) { return 390; }

void moduleWillTransition(CCUIConnectivityModuleViewController self, bool expanded) {
    ModuleState& state = stateOf<ModuleState>(self);
    state.expanded = expanded;
    for (const auto& button : state.buttons) {
        buttonContainer(button).send<"setLabelsVisible:">(expanded);
    }
    self.view().send<"setNeedsLayout">();
}

// The module answers nothing while its services are not up yet.
Object initAirplane(CCUIConnectivityAirplaneViewController raw) {
    int& failures = configuration().connectivityFailures;
    if (failures > 0) {
        --failures;
        raw.send<"release">();
        return {};
    }
    return super<CCUIConnectivityAirplaneViewController, "init", Object>(raw);
}

// These come with the module's own bundle.
void registerModuleClasses() {
    standIn<CCUIConnectivityButtonViewController, CCUILabeledRoundButtonViewController>();
    standIn<CCUIConnectivityAirplaneViewController, CCUIConnectivityButtonViewController>()
        .method<"init", &initAirplane>();
    standIn<CCUIConnectivityCellularDataViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityHotspotViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityWifiViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityBluetoothViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityModuleViewController, UIViewController, ModuleState>()
        .method<"viewDidLoad", &moduleDidLoad>()
        .method<"viewDidLayoutSubviews", &layoutModule>()
        .method<"preferredExpandedContentWidth", &moduleExpandedWidth>()
        .method<"preferredExpandedContentHeight", &moduleExpandedHeight>()
        .method<"willTransitionToExpandedContentMode:", &moduleWillTransition>();
}

}  // namespace

Strong<UIViewController> makeConnectivityModule(const ModuleKind&) {
    return create<CCUIConnectivityModuleViewController>();
}

void loadConnectivityModule() { bringBundle(moduleBundle); }

void registerConnectivity() {
    onRadioChange(&paintAll);
    onBundleLoad(moduleBundle, &registerModuleClasses);
    standIn<CCUIRoundButton, UIControl, RoundButtonState>()
        .method<"intrinsicContentSize", &intrinsicContentSize>()
        .method<"glyphImageView", &glyphImageView>()
        .method<"selectedGlyphView", &selectedGlyphView>()
        .method<"layoutSubviews", &layoutRoundButton>();
    standIn<CCUILabeledRoundButton, UIView, LabeledButtonState>()
        .method<"buttonView", &buttonView>()
        .method<"labelsVisible", &labelsVisible>()
        .method<"setLabelsVisible:", &setLabelsVisible>()
        .method<"layoutSubviews", &layoutLabeledButton>();
    standIn<CCUILabeledRoundButtonViewController, UIViewController>()
        .method<"loadView", &loadView>()
        .method<"button", &button>()
        .realMethod<"buttonContainer", &buttonContainer>()
        .method<"buttonTapped:", &buttonTapped>();
}

}  // namespace simulator
