// UIButton: a title and an image for each control state, shown in a label and an image view.
#include <algorithm>
#include <array>

#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/view/control/control.hpp"

namespace simulator {

namespace {

// Normal, highlighted, disabled, selected: by the lowest bit that is set.
constexpr std::size_t states = 4;
std::size_t slot(unsigned long state) { return state & 2 ? 2 : state & 4 ? 3 : state & 1 ? 1 : 0; }

struct ButtonState {
    long type;
    std::array<Copied<NSString>, states> titles;
    std::array<Strong<UIImage>, states> images;
    std::array<Strong<UIColor>, states> colors;
    Strong<UILabel> label;
    Strong<UIImageView> image;
};

ButtonState& button(UIButton view) { return stateOf<ButtonState>(view); }

template <class Slots>
Object current(UIButton view, const Slots& slots) {
    std::size_t now = slot(view.send<"state", unsigned long>());
    return slots[now] ? Object(slots[now].get()) : Object(slots[0].get());
}

UILabel labelOf(UIButton view) {
    ButtonState& s = button(view);
    if (!s.label) {
        s.label = create<UILabel>();
        s.label.send<"setTextAlignment:">(1L);
        insertSubview(view, s.label, viewState(view).subviews.size());
    }
    return s.label;
}

UIImageView imageViewOf(UIButton view) {
    ButtonState& s = button(view);
    if (!s.image) {
        s.image = create<UIImageView>();
        insertSubview(view, s.image, 0);
    }
    return s.image;
}

void show(UIButton view) {
    ButtonState& s = button(view);
    if (Object title = current(view, s.titles); title || s.label) {
        labelOf(view).send<"setText:">(title);
        Object color = current(view, s.colors);
        if (!color) color = s.type == 1 ? view.send<"tintColor", Object>() : UIColor::white();
        s.label.send<"setTextColor:">(color);
    }
    if (Object image = current(view, s.images); image || s.image) {
        imageViewOf(view).send<"setImage:">(image);
    }
    markNeedsLayout(view);
}

CGSize contentSize(UIButton view) {
    ButtonState& s = button(view);
    CGSize label = s.label ? s.label.send<"intrinsicContentSize", CGSize>() : CGSize{};
    CGSize image = s.image ? s.image.send<"intrinsicContentSize", CGSize>() : CGSize{};
    return {std::max(0.0, label.width) + std::max(0.0, image.width),
            std::max({0.0, label.height, image.height})};
}

// An image that is larger than the button is squeezed into it, each way by itself.
CGSize within(CGSize image, CGSize bounds) {
    return {std::clamp(image.width, 0.0, std::max(0.0, bounds.width)),
            std::clamp(image.height, 0.0, std::max(0.0, bounds.height))};
}

// The image, then the title, in the middle.
void place(UIButton view) {
    ButtonState& s = button(view);
    CGSize bounds = valuesOf(view).bounds.size;
    CGSize label = s.label ? s.label.send<"intrinsicContentSize", CGSize>() : CGSize{};
    CGSize image =
        s.image ? within(s.image.send<"intrinsicContentSize", CGSize>(), bounds) : CGSize{};
    double x = (bounds.width - std::max(0.0, label.width) - std::max(0.0, image.width)) / 2;
    if (s.image) {
        s.image.setFrame(rect(x, (bounds.height - image.height) / 2, image.width, image.height));
        x += image.width;
    }
    if (s.label) {
        s.label.setFrame(rect(x, (bounds.height - label.height) / 2, label.width, label.height));
    }
}

}  // namespace

void registerButton() {
    table<UIButton, UIControl, ButtonState>()
        .classMethod<"buttonWithType:">([](Class cls, long type) -> UIButton {
            Object raw = Object(classObject(cls)).send<"alloc", Object>();
            auto made = adopted(raw.send<"init", UIButton>());
            if (!made) return UIButton();
            button(made).type = type;
            return made.autoreleased();
        })
        .readonly<"buttonType", &ButtonState::type>()
        .method<"setTitle:forState:">([](UIButton v, NSString title, unsigned long state) {
            button(v).titles[slot(state)] = Copied<NSString>(title);
            show(v);
        })
        .method<"titleForState:">([](UIButton v, unsigned long state) -> NSString {
            return button(v).titles[slot(state)];
        })
        .method<"currentTitle">([](UIButton v) { return current(v, button(v).titles); })
        .method<"setTitleColor:forState:">([](UIButton v, UIColor color, unsigned long state) {
            button(v).colors[slot(state)] = retained(color);
            show(v);
        })
        .method<"setImage:forState:">([](UIButton v, UIImage image, unsigned long state) {
            button(v).images[slot(state)] = retained(image);
            show(v);
        })
        .method<"imageForState:">([](UIButton v, unsigned long state) -> UIImage {
            return button(v).images[slot(state)];
        })
        .method<"currentImage">([](UIButton v) { return current(v, button(v).images); })
        .method<"titleLabel">([](UIButton v) { return labelOf(v); })
        .method<"imageView">([](UIButton v) { return imageViewOf(v); })
        .method<"setHighlighted:">([](UIButton v, bool yes) {
            super<UIButton, "setHighlighted:">(v, yes);
            show(v);
        })
        .method<"setSelected:">([](UIButton v, bool yes) {
            super<UIButton, "setSelected:">(v, yes);
            show(v);
        })
        .method<"setEnabled:">([](UIButton v, bool yes) {
            super<UIButton, "setEnabled:">(v, yes);
            show(v);
        })
        .method<"tintColorDidChange">([](UIButton v) { show(v); })
        .method<"intrinsicContentSize">([](UIButton v) { return contentSize(v); })
        .method<"sizeThatFits:">([](UIButton v, CGSize) { return contentSize(v); })
        .method<"layoutSubviews">([](UIButton v) { place(v); });
}

}  // namespace simulator
