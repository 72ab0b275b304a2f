#include "simulator/services/module_contents.hpp"

#include "simulator/hardware/uikit_bridge.hpp"
#include "simulator/runtime/stand_in.hpp"
#include "simulator/uikit/parts.hpp"

namespace simulator {

namespace {

constexpr double symbolSide = 32;  // points
constexpr long centred = 1;        // text alignment
constexpr unsigned long flexibleMargins = 1 | 4 | 8 | 32;

struct ButtonViewState {
    Strong<UIImageView> symbol;
    Copied<NSString> glyphState;
};
struct ButtonControllerState {
    const char* symbol;
};

void centre(UIView part, CGSize whole, CGSize size) {
    part.setFrame(rect((whole.width - size.width) / 2, (whole.height - size.height) / 2, size.width,
                       size.height));
}

void layoutButtonView(CCUIButtonModuleView self) {
    super<CCUIButtonModuleView, "layoutSubviews">(self);
    UIImageView symbol = stateOf<ButtonViewState>(self).symbol;
    if (symbol) centre(symbol, self.bounds().size, {symbolSide, symbolSide});
}

void setViewGlyphState(CCUIButtonModuleView self, NSString glyphState) {
    stateOf<ButtonViewState>(self).glyphState = Copied<NSString>(glyphState);
}

NSString viewGlyphState(CCUIButtonModuleView self) {
    return stateOf<ButtonViewState>(self).glyphState;
}

void loadButtonView(CCUIButtonModuleViewController self) {
    auto view = create<CCUIButtonModuleView, "initWithFrame:">(rect(0, 0, 70, 70));
    const char* symbol = stateOf<ButtonControllerState>(self).symbol;
    if (view && symbol) {
        stateOf<ButtonViewState>(view).symbol = makeSymbolView(symbol, symbolSide);
        addPart(view, stateOf<ButtonViewState>(view).symbol);
    }
    if (view) return self.send<"setView:">(view);
    super<CCUIButtonModuleViewController, "loadView">(self);
}

void setGlyphState(CCUIButtonModuleViewController self, NSString glyphState) {
    UIView view = self.view();
    if (view.respondsTo(selector<"setGlyphState:">())) view.send<"setGlyphState:">(glyphState);
}

NSString glyphState(CCUIButtonModuleViewController self) {
    UIView view = self.view();
    if (!view.respondsTo(selector<"glyphState">())) return {};
    return view.send<"glyphState", NSString>();
}

// Points of an expanded menu.
double preferredExpandedContentHeight(CCUIMenuModuleViewController) { return 250; }
double preferredExpandedContentWidth(CCUIMenuModuleViewController) { return 300; }

Strong<UIViewController> controllerWithView(UIView view) {
    auto controller = create<UIViewController>();
    controller.send<"setView:">(view);
    return controller;
}

UIView tileView() {
    auto view = create<UIView, "initWithFrame:">(rect(0, 0, 154, 154));
    view.setUserInteractionEnabled(false);
    return view.autoreleased();
}

void addSymbol(UIView whole, const char* symbol, CGRect frame) {
    auto view = makeSymbolView(symbol, frame.size.width);
    view.setFrame(frame);
    view.setAutoresizingMask(flexibleMargins);
    addPart(whole, view);
}

}  // namespace

Strong<UIImageView> makeSymbolView(const char* symbol, double side) {
    constexpr long asTemplate = 2;
    UIImage image = imageOfPicture(rendering::Picture::symbol(symbol, {side, side}));
    auto view = create<UIImageView, "initWithImage:">(
        image.send<"imageWithRenderingMode:", UIImage>(asTemplate));
    view.send<"setTintColor:">(UIColor::white());
    return view;
}

Strong<UILabel> makeModuleLabel(NSString text, double fontSize, double alpha, long alignment) {
    auto label = create<UILabel, "initWithFrame:">(rect(0, 0, 0, 0));
    label.send<"setText:">(text);
    label.send<"setFont:">(sendClass<UIFont, "systemFontOfSize:", UIFont>(fontSize));
    label.send<"setTextAlignment:">(alignment);
    label.send<"setTextColor:">(UIColor::rgba(1, 1, 1, alpha));
    return label;
}

void setSymbol(CCUIButtonModuleViewController controller, const char* symbol) {
    stateOf<ButtonControllerState>(controller).symbol = symbol;
}

UIImageView symbolView(CCUIButtonModuleViewController controller) {
    UIView view = controller.view();
    if (!view.isKindOfClass(classOf<CCUIButtonModuleView>())) return {};
    return stateOf<ButtonViewState>(view).symbol;
}

Strong<UIViewController> makeButtonModule(const ModuleKind& kind) {
    auto controller = create<CCUIButtonModuleViewController>();
    if (controller) setSymbol(controller, kind.symbol);
    return controller;
}

// Half full, with its symbol at the foot.
Strong<UIViewController> makeSliderModule(const ModuleKind& kind) {
    constexpr unsigned long flexibleHeightAndTop = 2 | 8 | 16;
    UIView tile = tileView();
    CGSize size = tile.bounds().size;
    auto fill =
        create<UIView, "initWithFrame:">(rect(0, size.height / 2, size.width, size.height / 2));
    fill.setBackgroundColor(UIColor::rgba(1, 1, 1, 0.85));
    fill.setAutoresizingMask(flexibleHeightAndTop);
    addPart(tile, fill);
    constexpr double side = 30, foot = 14;
    auto symbol = makeSymbolView(kind.symbol, side);
    symbol.send<"setTintColor:">(UIColor::rgba(0.4, 0.4, 0.42, 1));
    symbol.setFrame(rect((size.width - side) / 2, size.height - foot - side, side, side));
    symbol.setAutoresizingMask(1 | 4 | 8);  // side margins and the top
    addPart(tile, symbol);
    return controllerWithView(tile);
}

Strong<UIViewController> makeMediaModule(const ModuleKind&) {
    UIView tile = tileView();
    auto title = makeModuleLabel("Not Playing"_ns, 15, 0.6, centred);
    title.setFrame(rect(0, 40, 154, 22));
    title.setAutoresizingMask(2);
    addPart(tile, title);
    constexpr double side = 22, top = 96;
    addSymbol(tile, "previous", rect(24, top, side, side));
    addSymbol(tile, "play", rect(154.0 / 2 - side / 2, top, side, side));
    addSymbol(tile, "next", rect(154 - 24 - side, top, side, side));
    return controllerWithView(tile);
}

void registerModuleControllers() {
    standIn<CCUIButtonModuleView, UIControl, ButtonViewState>()
        .method<"layoutSubviews", &layoutButtonView>()
        .method<"setGlyphState:", &setViewGlyphState>()
        .method<"glyphState", &viewGlyphState>();
    standIn<CCUIButtonModuleViewController, UIViewController, ButtonControllerState>()
        .method<"loadView", &loadButtonView>()
        .method<"setGlyphState:", &setGlyphState>()
        .method<"glyphState", &glyphState>();
    standIn<CCUIMenuModuleViewController, CCUIButtonModuleViewController>()
        .method<"preferredExpandedContentHeight", &preferredExpandedContentHeight>()
        .method<"preferredExpandedContentWidth", &preferredExpandedContentWidth>();
}

}  // namespace simulator
