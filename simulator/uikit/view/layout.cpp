// Layout: deferred to the frame, done from the top down, around the calls of a root view's
// controller. A pass that makes new layout necessary is repeated, but not without end.
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

bool layoutWanted = false;
constexpr int mostPasses = 64;

// Also when the layout raises.
struct LayingOut {
    explicit LayingOut(UIView laid)
        : view(laid), before(std::exchange(viewState(laid).layingOut, true)) {}
    ~LayingOut() { viewState(view).layingOut = before; }
    LayingOut(const LayingOut&) = delete;
    LayingOut& operator=(const LayingOut&) = delete;
    UIView view;
    bool before;
};

void layoutOnce(UIView view) {
    LayingOut layingOut(view);
    UIViewController controller = viewState(view).controller;
    viewState(view).needsLayout = false;
    controller.send<"viewWillLayoutSubviews">();
    view.send<"layoutSubviews">();
    controller.send<"viewDidLayoutSubviews">();
}

// A view whose layer masks this one's belongs to the tree of layers, though to no view's subviews.
UIView maskOf(UIView view) {
    CALayer mask = layerState(layerOf(view)).mask;
    if (!mask) return UIView();
    Object delegate = layerState(mask).delegate;
    return delegate.isKindOfClass(classOf<UIView>()) ? as<UIView>(delegate) : UIView();
}

bool needsLayoutBelow(UIView view) {
    if (viewState(view).needsLayout) return true;
    if (UIView mask = maskOf(view); mask && needsLayoutBelow(mask)) return true;
    for (auto& subview : viewState(view).subviews) {
        if (needsLayoutBelow(subview)) return true;
    }
    return false;
}

void passOver(UIView view) {
    Strong<UIView> kept = retained(view);
    if (viewState(view).needsLayout) layoutOnce(view);
    if (UIView mask = maskOf(view)) passOver(mask);
    auto subviews = viewState(view).subviews;
    for (auto& subview : subviews) {
        if (viewState(subview).superview == view) passOver(subview);
    }
}

// From the highest ancestor that needs it, without a gap, as the platform does.
UIView startOfLayout(UIView view) {
    UIView start = view;
    for (UIView v = viewState(view).superview; v && viewState(v).needsLayout;
         v = viewState(v).superview) {
        start = v;
    }
    return start;
}

}  // namespace

void markNeedsLayout(UIView view) {
    viewState(view).needsLayout = true;
    layoutWanted = true;
}

void layoutTree(UIView view) {
    for (int pass = 0; pass < mostPasses && needsLayoutBelow(view); ++pass) passOver(view);
}

void layoutWindows() {
    if (!std::exchange(layoutWanted, false)) return;
    auto windows = allWindows();
    for (auto& window : windows) layoutTree(window);
}

void addViewLayout(const Table<UIView>& views) {
    views.method<"setNeedsLayout">([](UIView v) { markNeedsLayout(v); })
        .method<"layoutIfNeeded">([](UIView v) { layoutTree(startOfLayout(v)); })
        .method<"layoutSubviews">([](UIView) {})
        .method<"setNeedsUpdateConstraints">([](UIView) {})
        .method<"updateConstraintsIfNeeded">([](UIView) {});
}

}  // namespace simulator
