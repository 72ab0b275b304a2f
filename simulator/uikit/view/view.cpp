// UIView: making one, its looks, its traits. Geometry, hierarchy, layout, touches and animations
// have files of their own.
#include "simulator/uikit/view/view.hpp"

#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

ViewState::~ViewState() {
    for (Strong<UIView>& subview : subviews) viewState(subview).superview = UIView();
    if (layer) layerState(layer).delegate = Object();
}

CALayer layerOf(UIView view) {
    Strong<CALayer>& slot = viewState(view).layer;
    if (!slot) {
        Object cls(classObject(object_getClass(view.get())));
        Class layerClass = cls.send<"layerClass", Class>();
        Object raw = Object(classObject(layerClass)).send<"alloc", Object>();
        slot = adopted(raw.send<"init", CALayer>());
        layerState(slot).delegate = view;
        viewState(view).seenTraits = traitsNow(screen().style);
    }
    return slot;
}

long styleOf(UIView view) {
    for (UIView v = view; v; v = viewState(v).superview) {
        if (long style = viewState(v).overrideStyle) return style;
    }
    return screen().style;
}

namespace {

void showBackground(UIView view) {
    UIColor color = viewState(view).background;
    layerOf(view).send<"setBackgroundColor:">(cgColor(resolved(color, styleOf(view))));
}

// Nearest own tint going up; the system's blue when there is none.
UIColor tintOf(UIView view) {
    for (UIView v = view; v; v = viewState(v).superview) {
        if (viewState(v).tint) return viewState(v).tint;
    }
    return sendClass<UIColor, "systemBlueColor", UIColor>();
}

void tellTintChanged(UIView view) {
    view.send<"tintColorDidChange">();
    auto subviews = viewState(view).subviews;
    for (auto& subview : subviews) {
        if (!viewState(subview).tint) tellTintChanged(subview);
    }
}

}  // namespace

void updateTraits(UIView root) {
    const Traits now = traitsNow(styleOf(root));
    ViewState& state = viewState(root);
    layerOf(root);
    if (state.seenTraits != now) {
        UITraitCollection previous = collectionOf(std::exchange(state.seenTraits, now));
        if (state.background) showBackground(root);
        if (state.controller) {
            state.controller.send<"traitCollectionDidChange:">(previous);
        }
        root.send<"traitCollectionDidChange:">(previous);
    }
    auto subviews = state.subviews;
    for (auto& subview : subviews) updateTraits(subview);
}

void addViewAppearance(const Table<UIView>& views) {
    views.method<"layer">([](UIView v) { return layerOf(v); })
        .method<"alpha">([](UIView v) -> double { return valuesOf(v).opacity; })
        .method<"setAlpha:">([](UIView v, double alpha) {
            change(layerOf(v), Property::opacity, {static_cast<float>(alpha)});
        })
        .method<"isHidden">([](UIView v) -> bool { return valuesOf(v).hidden; })
        .method<"setHidden:">([](UIView v, bool hidden) { valuesOf(v).hidden = hidden; })
        .method<"clipsToBounds">([](UIView v) -> bool { return valuesOf(v).masksToBounds; })
        .method<"setClipsToBounds:">(
            [](UIView v, bool clips) { valuesOf(v).masksToBounds = clips; })
        .method<"isOpaque">([](UIView v) -> bool { return !viewState(v).translucent; })
        .method<"setOpaque:">([](UIView v, bool opaque) { viewState(v).translucent = !opaque; })
        .method<"backgroundColor">([](UIView v) -> UIColor { return viewState(v).background; })
        .method<"setBackgroundColor:">([](UIView v, UIColor color) {
            viewState(v).background = retained(color);
            showBackground(v);
        })
        .method<"tintColor">([](UIView v) { return tintOf(v); })
        .method<"setTintColor:">([](UIView v, UIColor color) {
            viewState(v).tint = retained(color);
            tellTintChanged(v);
        })
        .method<"tintColorDidChange">([](UIView) {})
        .method<"_setContinuousCornerRadius:">([](UIView v, double radius) {
            valuesOf(v).continuousCorners = true;
            change(layerOf(v), Property::cornerRadius, {radius});
        })
        .method<"_continuousCornerRadius">(
            [](UIView v) -> double { return valuesOf(v).cornerRadius; })
        .method<"setNeedsDisplay">([](UIView) {})
        .property<"tag", &ViewState::tag>()
        .property<"contentMode", &ViewState::contentMode>()
        .property<"accessibilityLabel", &ViewState::accessibilityLabel>()
        .property<"accessibilityIdentifier", &ViewState::accessibilityIdentifier>()
        .method<"overrideUserInterfaceStyle">(
            [](UIView v) -> long { return viewState(v).overrideStyle; })
        .method<"setOverrideUserInterfaceStyle:">([](UIView v, long style) {
            viewState(v).overrideStyle = style;
            updateTraits(v);
        })
        .method<"traitCollection">([](UIView v) { return traitsOf(styleOf(v)); })
        .method<"traitCollectionDidChange:">([](UIView, UITraitCollection) {});
}

void registerView() {
    auto views = table<UIView, UIResponder, ViewState>();
    views.classMethod<"layerClass">([](Class) -> Class { return classOf<CALayer>(); })
        .method<"init">(
            [](UIView self) -> UIView { return self.send<"initWithFrame:", UIView>(CGRect{}); })
        .method<"initWithFrame:">([](UIView self, CGRect frame) -> UIView {
            UIView view = super<UIView, "init", UIView>(self);
            if (!view) return view;
            setFrame(layerOf(view), frame);
            viewState(view).needsLayout = true;
            return view;
        });
    addViewAppearance(views);
    addViewGeometry(views);
    addViewHierarchy(views);
    addViewLayout(views);
    addViewAnimations(views);
    addViewTouches(views);
    registerPresentation();
}

}  // namespace simulator
