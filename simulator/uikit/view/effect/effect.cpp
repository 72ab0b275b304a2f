#include "simulator/uikit/view/effect/effect.hpp"

#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct EffectState {
    long style;
};
struct EffectViewState {
    Strong<UIVisualEffect> effect;
    Strong<UIView> content;
};
struct BackdropState {
    long style;
    double radius;
    bool radiusSet, setOnce;
};

constexpr double blurRadius = 20;  // standard deviation in points
constexpr long darkStyle = 2;

rendering::Colour tintOf(long style, long interface) {
    if (style == 0) return {0.97, 0.97, 0.97, 0.82};  // extra light
    if (style == 1) return {1, 1, 1, 0.3};
    bool dark = style == darkStyle || interface == UITraitCollection::dark;
    return dark ? rendering::Colour{0.11, 0.11, 0.11, 0.73}
                : rendering::Colour{0.97, 0.97, 0.97, 0.5};
}

UIView contentOf(UIVisualEffectView view) {
    Strong<UIView>& content = stateOf<EffectViewState>(view).content;
    if (!content) {
        content = create<UIView, "initWithFrame:">(valuesOf(view).bounds);
        viewState(content).autoresizing = 2 | 16;  // flexible width and height
        insertSubview(view, content, 0);
    }
    return content;
}

void registerBackdrop() {
    table<UIBackdropView, UIView, BackdropState>()
        .method<"initWithPrivateStyle:">([](UIBackdropView self, long style) -> UIBackdropView {
            return self.send<"initWithFrame:privateStyle:", UIBackdropView>(CGRect{}, style);
        })
        .method<"initWithFrame:privateStyle:">(
            [](UIBackdropView self, CGRect frame, long style) -> UIBackdropView {
                auto view = self.send<"initWithFrame:", UIBackdropView>(frame);
                if (view) stateOf<BackdropState>(view).style = style;
                return view;
            })
        .readonly<"style", &BackdropState::style>()
        .readonly<"blurRadius", &BackdropState::radius>()
        .method<"setBlurRadius:">([](UIBackdropView v, double radius) {
            stateOf<BackdropState>(v).radius = radius;
            stateOf<BackdropState>(v).radiusSet = true;
        })
        .property<"blurRadiusSetOnce", &BackdropState::setOnce>();
}

}  // namespace

std::optional<rendering::Blur> blurOf(UIView view) {
    if (view.isKindOfClass(classOf<UIVisualEffectView>())) {
        UIVisualEffect effect = stateOf<EffectViewState>(view).effect;
        if (!effect.isKindOfClass(classOf<UIBlurEffect>())) return std::nullopt;
        return rendering::Blur{blurRadius,
                               tintOf(stateOf<EffectState>(effect).style, styleOf(view)), 1.8};
    }
    if (view.isKindOfClass(classOf<UIBackdropView>())) {
        const BackdropState& s = stateOf<BackdropState>(view);
        bool dark = styleOf(view) == UITraitCollection::dark;
        rendering::Colour tint =
            dark ? rendering::Colour{0, 0, 0, 0.3} : rendering::Colour{1, 1, 1, 0.2};
        return rendering::Blur{s.radiusSet ? s.radius : blurRadius, tint, 1.8};
    }
    return std::nullopt;
}

void registerEffects() {
    table<UIVisualEffect, Object, EffectState>();
    table<UIBlurEffect, UIVisualEffect>()
        .classMethod<"effectWithStyle:">([](Class, long style) -> UIBlurEffect {
            auto effect = create<UIBlurEffect>();
            if (!effect) return UIBlurEffect();
            stateOf<EffectState>(effect).style = style;
            return effect.autoreleased();
        })
        .method<"_style">([](UIBlurEffect e) { return stateOf<EffectState>(e).style; });
    table<UIVisualEffectView, UIView, EffectViewState>()
        .method<"initWithEffect:">(
            [](UIVisualEffectView self, UIVisualEffect effect) -> UIVisualEffectView {
                auto view = self.send<"initWithFrame:", UIVisualEffectView>(CGRect{});
                if (view) stateOf<EffectViewState>(view).effect = retained(effect);
                return view;
            })
        .property<"effect", &EffectViewState::effect>()
        .method<"contentView">([](UIVisualEffectView v) { return contentOf(v); });
    registerBackdrop();
}

}  // namespace simulator
