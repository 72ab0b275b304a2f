#include "toggles/slider.hpp"

#include <algorithm>
#include <cmath>

#include "platform/definition.hpp"
#include "platform/materials.hpp"
#include "settings/device_profile.hpp"
#include "settings/notifications.hpp"

namespace vantori {

namespace {

constexpr double grownScale = 1.15;
constexpr double growingTime = 0.15;  // seconds
constexpr double cornerRadius = 20;
constexpr long materialRecipe = 4, backMaterial = 2, frontMaterial = 3;

struct SliderState {
    Strong<UIView> front;
    Strong<UIView> container;
    Strong<UIPanGestureRecognizer> dragRecognizer;
    Copied<UIColor> frontColor;
    Copied<UIColor> backColor;
    Strong<UIView> glyphContainer;
    Strong<UIView> package;
    float currentValue;
};

SliderState& stateIn(VNTSlider self) { return stateOf<SliderState>(self); }

double widthOf(VNTSlider self) { return self.bounds().size.width; }

void moveFill(VNTSlider self, double distance) {
    UIView fill = stateIn(self).front;
    fill.setTransform(translated(fill.transform(), distance, 0));
}

// Before iOS 13 there are no materials: black below white, both translucent.
void usePlainLook(const SliderState& state) {
    state.container.setAlpha(0.35);
    state.container.setBackgroundColor(UIColor::black());
    state.front.setAlpha(0.7);
    state.front.setBackgroundColor(UIColor::white());
}

void createBar(VNTSlider self) {
    SliderState& state = stateIn(self);
    const bool hasMaterials = isSystem13OrLater();
    if (hasMaterials) {
        state.container = retained(MTMaterialView::with(materialRecipe, backMaterial));
        state.front = retained(MTMaterialView::with(materialRecipe, frontMaterial));
    } else {
        state.container = create<UIView>();
        state.front = create<UIView>();
    }
    state.front.setFrame(self.bounds());
    state.container.setAlpha(1);
    state.front.setAlpha(1);
    if (!hasMaterials) usePlainLook(state);
    if (state.container) self.addSubview(state.container);
    if (state.front) self.addSubview(state.front);
}

VNTSlider initWithFrame(VNTSlider self, CGRect frame) {
    self = super<VNTSlider, "initWithFrame:", VNTSlider>(self, frame);
    if (!self) return self;
    observe(self, selector<"refreshValue">(), local::shouldRefreshValue());
    createBar(self);
    // Attached to no view, on purpose: the touch methods do the dragging.
    stateIn(self).dragRecognizer = create<UIPanGestureRecognizer, "initWithTarget:action:">(
        self, selector<"dragViewWithPanGesture:">());
    self.send<"_setContinuousCornerRadius:">(cornerRadius);
    self.layer().setMasksToBounds(true);
    return self;
}

// The fill gets bounds and centre, not a frame: setting the frame of a translated view moves its
// centre so that the frame reads as given, and the fill would show 1 until the next value.
void setFrame(VNTSlider self, CGRect frame) {
    super<VNTSlider, "setFrame:">(self, frame);
    const SliderState& state = stateIn(self);
    const CGRect bounds = self.bounds();
    state.front.setBounds(bounds);
    state.front.setCenter(
        {bounds.origin.x + bounds.size.width / 2, bounds.origin.y + bounds.size.height / 2});
    state.container.setFrame(bounds);
}

void setFrontColor(VNTSlider self, UIColor color) {
    SliderState& state = stateIn(self);
    state.frontColor = Copied<UIColor>(color);
    state.front.setBackgroundColor(state.frontColor);
}

void setBackColor(VNTSlider self, UIColor color) {
    SliderState& state = stateIn(self);
    state.backColor = Copied<UIColor>(color);
    state.container.setBackgroundColor(state.backColor);
}

void ignoreValue(VNTSlider, float) {}
void ignoreRefresh(VNTSlider) {}

void adjustSlider(VNTSlider self, float value) {
    const double width = widthOf(self);
    moveFill(self, width * value - (width + stateIn(self).front.frame().origin.x));
}

// The end that the fill reaches is taken as it was meant, not as it reads back, so that the ends
// are exactly 0 and 1.
void drag(VNTSlider self, double distance) {
    const double width = widthOf(self);
    UIView fill = stateIn(self).front;
    if (!fill || width <= 0) return;
    const double from = fill.frame().origin.x;
    const double to = std::clamp(from + distance, -width, 0.0);
    moveFill(self, to - from);
    self.adjustValue(static_cast<float>((width - std::abs(to)) / width));
}

void touchesBegan(VNTSlider self, Object, Object) {
    post(local::shouldLockScrollView());
    auto grow = block([self] { self.setTransform(scaling(grownScale)); });
    auto tap = block<void(bool)>([](bool finished) {
        if (!finished) return;
        create<UIImpactFeedbackGenerator, "initWithStyle:">(UIImpactFeedbackGenerator::light)
            .impactOccurred();
    });
    UIView::animate(growingTime, 0, 0, grow, tap);
}

void touchesMoved(VNTSlider self, Object touches, Object) {
    const Object touch = touches.send<"anyObject", Object>();
    const CGPoint now = touch.send<"locationInView:", CGPoint>(self);
    const CGPoint before = touch.send<"previousLocationInView:", CGPoint>(self);
    drag(self, now.x - before.x);
}

void touchesOver(VNTSlider self, Object, Object) {
    post(local::shouldUnlockScrollView());
    auto shrink = block([self] { self.setTransform(scaling(1)); });
    UIView::animate(growingTime, shrink);
}

void updateGlyphColor(VNTSlider self, UIColor color, CALayer layer) {
    if (!layer) return;
    layer.setContentsMultiplyColor(color.cgColor());
    const NSArray sublayers = layer.sublayers();
    for (unsigned long i = 0; i < sublayers.count(); ++i) {
        self.updateGlyphColor(color, sublayers.at<CALayer>(i));
    }
}

}  // namespace

void registerSlider() {
    define<VNTSlider, UIView, SliderState>()
        .method<"initWithFrame:", &initWithFrame>()
        .method<"setFrame:", &setFrame>()
        .method<"adjustValue:", &ignoreValue>()
        .method<"adjustSlider:", &adjustSlider>()
        .method<"refreshValue", &ignoreRefresh>()
        .method<"updateGlyphColor:forLayer:", &updateGlyphColor>()
        .method<"touchesBegan:withEvent:", &touchesBegan>()
        .method<"touchesMoved:withEvent:", &touchesMoved>()
        .method<"touchesEnded:withEvent:", &touchesOver>()
        .method<"touchesCancelled:withEvent:", &touchesOver>()
        .property<"frontView", &SliderState::front>()
        .property<"containerView", &SliderState::container>()
        .property<"dragGestureRecognizer", &SliderState::dragRecognizer>()
        .readonly<"frontColor", &SliderState::frontColor>()
        .method<"setFrontColor:", &setFrontColor>()
        .readonly<"backColor", &SliderState::backColor>()
        .method<"setBackColor:", &setBackColor>()
        .property<"glyphContainerView", &SliderState::glyphContainer>()
        .property<"packageView", &SliderState::package>()
        .property<"currentValue", &SliderState::currentValue>();
}

}  // namespace vantori
