#include "simulator/services/connectivity.hpp"

#include "simulator/runtime/stand_in.hpp"
#include "simulator/springboard/configuration.hpp"
#include "simulator/springboard/parts.hpp"
#include "simulator/springboard/uikit_bridge.hpp"

namespace simulator {

namespace {

#define VANTORI_CLASS(type, base)                 \
    struct type : base {                          \
        static constexpr FixedString name{#type}; \
        using base::base;                         \
    }

VANTORI_CLASS(CCUIRoundButton, UIControl);
VANTORI_CLASS(CCUILabeledRoundButton, UIView);
VANTORI_CLASS(CCUILabeledRoundButtonViewController, UIViewController);
VANTORI_CLASS(CCUIConnectivityButtonViewController, CCUILabeledRoundButtonViewController);
VANTORI_CLASS(CCUIConnectivityAirplaneViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityCellularDataViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityHotspotViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityWifiViewController, CCUIConnectivityButtonViewController);
VANTORI_CLASS(CCUIConnectivityBluetoothViewController, CCUIConnectivityButtonViewController);

#undef VANTORI_CLASS

struct RoundButtonState {
    Strong<UIImageView> glyph;
    Strong<UIView> selectedGlyph;
    bool on;
};
struct LabeledButtonState {
    Strong<CCUIRoundButton> button;
};

// The look of a connectivity button: its symbol and the colour of its disc while it is on.
struct Look {
    const char* className;
    const char* symbol;
    double red, green, blue;
    bool on;
};

constexpr Look looks[]{
    {"CCUIConnectivityAirplaneViewController", "airplane", 255, 149, 0, false},
    {"CCUIConnectivityCellularDataViewController", "cellular", 52, 199, 89, true},
    {"CCUIConnectivityHotspotViewController", "hotspot", 52, 199, 89, false},
    {"CCUIConnectivityWifiViewController", "wifi", 10, 132, 255, true},
    {"CCUIConnectivityBluetoothViewController", "bluetooth", 10, 132, 255, true},
};

const Look* lookOf(id controller) {
    std::string_view name = class_getName(object_getClass(controller));
    for (const Look& look : looks) {
        if (name == look.className) return &look;
    }
    return nullptr;
}

CGSize intrinsicContentSize(CCUIRoundButton) { return configuration().connectivityButton; }

UIImageView glyphImageView(CCUIRoundButton self) { return stateOf<RoundButtonState>(self).glyph; }

UIView selectedGlyphView(CCUIRoundButton self) {
    return stateOf<RoundButtonState>(self).selectedGlyph;
}

void paint(CCUIRoundButton self, const Look& look) {
    bool on = stateOf<RoundButtonState>(self).on;
    self.setBackgroundColor(on ? UIColor::rgba(look.red / 255, look.green / 255, look.blue / 255, 1)
                               : UIColor::rgba(0.5, 0.5, 0.5, 0.35));
}

// A disc with the glyph over its middle half.
void layoutRoundButton(CCUIRoundButton self) {
    super<CCUIRoundButton, "layoutSubviews">(self);
    CGSize size = self.bounds().size;
    self.layer().setCornerRadius(size.width / 2);
    CGRect middle = rect(size.width / 4, size.height / 4, size.width / 2, size.height / 2);
    RoundButtonState& state = stateOf<RoundButtonState>(self);
    if (state.glyph) state.glyph.setFrame(middle);
    if (state.selectedGlyph) state.selectedGlyph.setFrame(middle);
}

UIImage glyph(const char* symbol) {
    constexpr rendering::Size size{24, 24};  // points
    constexpr rendering::Colour white{1, 1, 1, 1};
    return imageOfPicture(rendering::Picture::symbol(symbol, size, white));
}

Strong<CCUIRoundButton> makeRoundButton(const Look& look) {
    CGSize size = configuration().connectivityButton;
    auto button = create<CCUIRoundButton, "initWithFrame:">(rect(0, 0, size.width, size.height));
    if (!button) return button;
    RoundButtonState& state = stateOf<RoundButtonState>(button);
    state.on = look.on;
    state.glyph = create<UIImageView, "initWithImage:">(glyph(look.symbol));
    state.selectedGlyph = create<UIView, "initWithFrame:">(rect(0, 0, 0, 0));
    addPart(button, state.glyph);
    addPart(button, state.selectedGlyph);
    paint(button, look);
    return button;
}

CCUIRoundButton buttonView(CCUILabeledRoundButton self) {
    return stateOf<LabeledButtonState>(self).button;
}

void layoutLabeledButton(CCUILabeledRoundButton self) {
    super<CCUILabeledRoundButton, "layoutSubviews">(self);
    CCUIRoundButton button = buttonView(self);
    if (button) button.setFrame(self.bounds());
}

void loadView(CCUILabeledRoundButtonViewController self) {
    CGSize size = configuration().connectivityButton;
    auto view =
        create<CCUILabeledRoundButton, "initWithFrame:">(rect(0, 0, size.width, size.height));
    const Look* look = lookOf(self.get());
    if (view && look) {
        auto button = makeRoundButton(*look);
        button.send<"addTarget:action:forControlEvents:">(self, selector<"buttonTapped:">(),
                                                          64UL);  // touch up inside
        addPart(view, button);
        stateOf<LabeledButtonState>(view).button = std::move(button);
    }
    self.send<"setView:">(view);
}

CCUIRoundButton button(CCUILabeledRoundButtonViewController self) {
    return buttonView(CCUILabeledRoundButton(self.view().get()));
}

void buttonTapped(CCUILabeledRoundButtonViewController self, Object) {
    CCUIRoundButton tapped = button(self);
    const Look* look = lookOf(self.get());
    if (!tapped || !look) return;
    bool& on = stateOf<RoundButtonState>(tapped).on;
    on = !on;
    paint(tapped, *look);
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

}  // namespace

void registerConnectivity() {
    standIn<CCUIRoundButton, UIControl, RoundButtonState>()
        .method<"intrinsicContentSize", &intrinsicContentSize>()
        .method<"glyphImageView", &glyphImageView>()
        .method<"selectedGlyphView", &selectedGlyphView>()
        .method<"layoutSubviews", &layoutRoundButton>();
    standIn<CCUILabeledRoundButton, UIView, LabeledButtonState>()
        .method<"buttonView", &buttonView>()
        .method<"layoutSubviews", &layoutLabeledButton>();
    standIn<CCUILabeledRoundButtonViewController, UIViewController>()
        .method<"loadView", &loadView>()
        .method<"button", &button>()
        .method<"buttonTapped:", &buttonTapped>();
    standIn<CCUIConnectivityButtonViewController, CCUILabeledRoundButtonViewController>();
    standIn<CCUIConnectivityAirplaneViewController, CCUIConnectivityButtonViewController>()
        .method<"init", &initAirplane>();
    standIn<CCUIConnectivityCellularDataViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityHotspotViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityWifiViewController, CCUIConnectivityButtonViewController>();
    standIn<CCUIConnectivityBluetoothViewController, CCUIConnectivityButtonViewController>();
}

}  // namespace simulator
