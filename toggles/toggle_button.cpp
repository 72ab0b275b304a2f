#include "toggles/toggle_button.hpp"

#include "platform/definition.hpp"
#include "platform/package_view.hpp"

namespace vantori {

namespace {

using Button = VNTDailyToggleButton;

struct ButtonState {
    Strong<CCUICAPackageView> packageView;
    Strong<UIView> buttonView;  // stored only
    Strong<UIImageView> onImageView;
    Strong<UIImageView> offImageView;
    Strong<UIView> onView;
    Strong<UIView> offView;
    Strong<UIColor> onColor;
    Strong<UIColor> offColor;
};

struct ViewState {
    Strong<VNTDailyToggleButton> toggleButton;
    Strong<UIView> buttonView;  // stored only
};

ButtonState& stateIn(Button self) { return stateOf<ButtonState>(self); }

Strong<UIView> colourLayer(CGRect bounds, UIColor color) {
    Strong<UIView> layer = create<UIView, "initWithFrame:">(bounds);
    layer.setBackgroundColor(color);
    layer.setAlpha(0.5);
    layer.setUserInteractionEnabled(false);
    return layer;
}

void createColourLayers(Button self) {
    const CGRect bounds = self.bounds();
    stateIn(self).onView = colourLayer(bounds, UIColor::white());
    stateIn(self).offView = colourLayer(bounds, UIColor::black());
}

// A template, so that the tint colour paints it.
Strong<UIImageView> glyphView(CGRect bounds, UIImage image) {
    Strong<UIImageView> view = create<UIImageView, "initWithFrame:">(bounds);
    view.setImage(image.withRenderingMode(UIImage::alwaysTemplate));
    view.setContentMode(UIImageView::aspectFit);
    return view;
}

Button initWithPackage(Button raw, CGRect frame, NSString path) {
    auto self = super<Button, "initWithFrame:", Button>(raw, frame);
    if (!self) return self;
    ButtonState& state = stateIn(self);
    state.packageView = create<CCUICAPackageView, "initWithFrame:">(self.bounds());
    state.packageView.setPackage(CAPackage::fromBundle(path));
    self.layer().setMasksToBounds(true);
    createColourLayers(self);
    self.addSubview(state.onView);
    self.addSubview(state.offView);
    self.addSubview(state.packageView);
    return self;
}

Button initWithImages(Button raw, CGRect frame, UIImage on, UIImage off) {
    auto self = super<Button, "initWithFrame:", Button>(raw, frame);
    if (!self) return self;
    ButtonState& state = stateIn(self);
    self.layer().setMasksToBounds(true);
    createColourLayers(self);
    state.onImageView = glyphView(self.bounds(), on);
    state.offImageView = glyphView(self.bounds(), off);
    self.addSubview(state.onView);
    self.addSubview(state.offView);
    self.addSubview(state.onImageView);
    self.addSubview(state.offImageView);
    return self;
}

void setFrame(Button self, CGRect frame) {
    super<Button, "setFrame:">(self, frame);
    ButtonState& state = stateIn(self);
    const CGRect bounds = self.bounds();
    const auto [width, height] = frame.size;
    const CGPoint middle{width * 0.5, height * 0.5};
    state.onView.setFrame(bounds);
    state.offView.setFrame(bounds);
    if (state.packageView) {
        state.packageView.setTransform({0.85, 0, 0, 0.85, 0, 0});
        state.packageView.setCenter(middle);
    }
    if (state.onImageView) {
        for (UIImageView glyph :
             {UIImageView(state.onImageView), UIImageView(state.offImageView)}) {
            glyph.setFrame(rect(0, 0, width - 5, height - 5));
            glyph.setCenter(middle);
        }
    }
    self.layer().setCornerRadius(height * 0.5);
}

// Images know two states only: any name but "on" shows the off image.
void updateState(Button self, NSString name) {
    ButtonState& state = stateIn(self);
    if (state.packageView) {
        state.packageView.setStateName(name);
        return;
    }
    const bool on = name.equals("on"_ns);
    state.onImageView.setAlpha(on ? 1 : 0);
    state.offImageView.setAlpha(on ? 0 : 1);
}

// A colour tints the image of a button that has images, and else the colour layer.
void applyColor(UIColor color, UIImageView image, UIView layer) {
    const Copied<UIColor> copy(color);
    if (image) {
        image.setTintColor(copy);
    } else {
        layer.setBackgroundColor(copy);
    }
}

void setOnColor(Button self, UIColor color) {
    ButtonState& state = stateIn(self);
    state.onColor = retained(color);
    applyColor(color, state.onImageView, state.onView);
}

void setOffColor(Button self, UIColor color) {
    ButtonState& state = stateIn(self);
    state.offColor = retained(color);
    applyColor(color, state.offImageView, state.offView);
}

void setToggleButton(VNTDailyToggleView self, VNTDailyToggleButton button) {
    stateOf<ViewState>(self).toggleButton = retained(button);
    self.addSubview(button);
}

// The button fills the view; the other one is not laid out.
void setViewFrame(VNTDailyToggleView self, CGRect frame) {
    super<VNTDailyToggleView, "setFrame:">(self, frame);
    stateOf<ViewState>(self).toggleButton.setFrame(self.bounds());
}

}  // namespace

void registerToggleButton() {
    define<VNTDailyToggleButton, UIButton, ButtonState>()
        .method<"initWithFrame:packageContentsPath:", &initWithPackage>()
        .method<"initWithFrame:onImage:offImage:", &initWithImages>()
        .method<"setFrame:", &setFrame>()
        .method<"updateState:", &updateState>()
        .method<"setOnColor:", &setOnColor>()
        .method<"setOffColor:", &setOffColor>()
        .readonly<"onColor", &ButtonState::onColor>()
        .readonly<"offColor", &ButtonState::offColor>()
        .property<"packageView", &ButtonState::packageView>()
        .property<"buttonView", &ButtonState::buttonView>()
        .property<"onImageView", &ButtonState::onImageView>()
        .property<"offImageView", &ButtonState::offImageView>()
        .property<"onView", &ButtonState::onView>()
        .property<"offView", &ButtonState::offView>();
    define<VNTDailyToggleView, UIView, ViewState>()
        .method<"setFrame:", &setViewFrame>()
        .method<"setToggleButton:", &setToggleButton>()
        .readonly<"toggleButton", &ViewState::toggleButton>()
        .property<"buttonView", &ViewState::buttonView>();
}

}  // namespace vantori
