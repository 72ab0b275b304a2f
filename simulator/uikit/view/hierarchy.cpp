// UIView's tree: who is whose subview, in what order, and who is told when that changes.
#include <algorithm>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/controller/controller.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

using Views = std::vector<Strong<UIView>>;

std::size_t indexOf(const Views& views, UIView view) {
    return static_cast<std::size_t>(std::find(views.begin(), views.end(), view) - views.begin());
}

void tellWillMove(UIView view, UIWindow window) {
    view.send<"willMoveToWindow:">(window);
    Views subviews = viewState(view).subviews;
    for (auto& subview : subviews) tellWillMove(subview, window);
}

// In the order of the platform: a view before its subviews.
void tellDidMove(UIView view) {
    if (!windowOf(view)) stopAnimations(layerOf(view), Stopping::nextTurn);
    view.send<"didMoveToWindow">();
    Views subviews = viewState(view).subviews;
    for (auto& subview : subviews) tellDidMove(subview);
    appearanceMayHaveChanged(view);
}

// The layer goes right above the layer of the subview below.
void placeLayer(UIView parent, UIView child) {
    const Views& views = viewState(parent).subviews;
    std::size_t index = indexOf(views, child);
    const auto& sublayers = layerState(layerOf(parent)).sublayers;
    removeFromSuperlayer(layerOf(child));
    std::size_t place = sublayers.size();
    if (index + 1 < views.size()) {
        CALayer above = layerOf(views[index + 1]);
        place = static_cast<std::size_t>(std::find(sublayers.begin(), sublayers.end(), above) -
                                         sublayers.begin());
    }
    insertSublayer(layerOf(parent), layerOf(child), place);
}

// Right above the layer of the sibling: under layers without a view that lie above that.
void placeLayerAbove(UIView parent, UIView child, UIView sibling) {
    if (!child || viewState(child).superview != parent) return;
    if (!sibling || viewState(sibling).superview != parent) return;
    const auto& sublayers = layerState(layerOf(parent)).sublayers;
    removeFromSuperlayer(layerOf(child));
    auto below = std::find(sublayers.begin(), sublayers.end(), layerOf(sibling));
    insertSublayer(layerOf(parent), layerOf(child),
                   static_cast<std::size_t>(below - sublayers.begin()) + 1);
}

void reorder(UIView parent, UIView child, std::size_t index) {
    Views& views = viewState(parent).subviews;
    std::size_t from = indexOf(views, child);
    if (from == views.size()) return;
    Strong<UIView> kept = std::move(views[from]);
    views.erase(views.begin() + static_cast<std::ptrdiff_t>(from));
    views.insert(views.begin() + static_cast<std::ptrdiff_t>(std::min(index, views.size())),
                 std::move(kept));
    placeLayer(parent, child);
}

void detach(UIView view) {
    UIView parent = viewState(view).superview;
    Views& views = viewState(parent).subviews;
    viewState(view).superview = UIView();
    views.erase(views.begin() + static_cast<std::ptrdiff_t>(indexOf(views, view)));
    removeFromSuperlayer(layerOf(view));
    markNeedsLayout(parent);
}

void requireMovable(UIView parent, UIView child) {
    requireKind<UIView>("-[UIView addSubview:]", child);
    if (isDescendant(parent, child)) {
        raise("NSInvalidArgumentException"_ns, "-[UIView addSubview:]: a view cannot hold itself");
    }
}

std::size_t countOf(UIView view) { return viewState(view).subviews.size(); }

}  // namespace

bool isDescendant(UIView view, UIView ancestor) {
    for (; view; view = viewState(view).superview) {
        if (view == ancestor) return true;
    }
    return false;
}

UIWindow windowOf(UIView view) {
    UIView root = view;
    while (viewState(root).superview) root = viewState(root).superview;
    return root.isKindOfClass(classOf<UIWindow>()) ? as<UIWindow>(root) : UIWindow();
}

void insertSubview(UIView parent, UIView child, std::size_t index) {
    if (!child) return;
    requireMovable(parent, child);
    if (viewState(child).superview == parent) return reorder(parent, child, index);
    Strong<UIView> kept = retained(child);
    UIWindow before = windowOf(child);
    UIWindow after = windowOf(parent);
    child.send<"willMoveToSuperview:">(parent);
    if (before != after) tellWillMove(child, after);
    if (UIView old = viewState(child).superview) {
        old.send<"willRemoveSubview:">(child);
        detach(child);
    }
    Views& views = viewState(parent).subviews;
    views.insert(views.begin() + static_cast<std::ptrdiff_t>(std::min(index, views.size())), kept);
    viewState(child).superview = parent;
    placeLayer(parent, child);
    markNeedsLayout(parent);
    if (viewState(child).needsLayout) markNeedsLayout(child);
    updateTraits(child);
    if (before != after) tellDidMove(child);
    child.send<"didMoveToSuperview">();
    parent.send<"didAddSubview:">(child);
}

void removeFromSuperview(UIView view) {
    UIView parent = viewState(view).superview;
    if (!parent) return;
    Strong<UIView> kept = retained(view);
    bool hadWindow = static_cast<bool>(windowOf(view));
    view.send<"willMoveToSuperview:">(UIView());
    if (hadWindow) tellWillMove(view, UIWindow());
    parent.send<"willRemoveSubview:">(view);
    if (!viewState(view).superview) return;  // someone who was told took it away
    detach(view);
    if (hadWindow) tellDidMove(view);
    view.send<"didMoveToSuperview">();
}

void addViewHierarchy(const Table<UIView>& views) {
    views.readonly<"superview", &ViewState::superview>()
        .method<"subviews">([](UIView v) -> NSArray {
            auto array = NSMutableArray::empty();
            for (auto& subview : viewState(v).subviews) array.add(subview);
            return array;
        })
        .method<"window">([](UIView v) { return windowOf(v); })
        .method<"addSubview:">([](UIView v, UIView child) { insertSubview(v, child, countOf(v)); })
        .method<"insertSubview:atIndex:">([](UIView v, UIView child, long index) {
            insertSubview(v, child, index < 0 ? 0 : static_cast<std::size_t>(index));
        })
        .method<"insertSubview:aboveSubview:">([](UIView v, UIView child, UIView sibling) {
            if (child == sibling) return;
            if (child && viewState(child).superview == v) reorder(v, child, countOf(v));
            insertSubview(v, child, indexOf(viewState(v).subviews, sibling) + 1);
            placeLayerAbove(v, child, sibling);
        })
        .method<"insertSubview:belowSubview:">([](UIView v, UIView child, UIView sibling) {
            if (child == sibling) return;
            if (child && viewState(child).superview == v) reorder(v, child, countOf(v));
            insertSubview(v, child, indexOf(viewState(v).subviews, sibling));
        })
        .method<"bringSubviewToFront:">([](UIView v, UIView c) { reorder(v, c, countOf(v)); })
        .method<"sendSubviewToBack:">([](UIView v, UIView child) { reorder(v, child, 0); })
        .method<"exchangeSubviewAtIndex:withSubviewAtIndex:">([](UIView v, long a, long b) {
            Views& all = viewState(v).subviews;
            auto low = static_cast<std::size_t>(std::min(a, b));
            auto high = static_cast<std::size_t>(std::max(a, b));
            if (std::min(a, b) < 0 || high >= all.size() || low == high) return;
            UIView lower = all[low];
            UIView upper = all[high];
            reorder(v, upper, low);
            reorder(v, lower, high);
        })
        .method<"removeFromSuperview">([](UIView v) { removeFromSuperview(v); })
        .method<"isDescendantOfView:">(
            [](UIView v, UIView ancestor) -> bool { return isDescendant(v, ancestor); })
        .method<"viewWithTag:">([](UIView v, long tag) -> UIView {
            if (viewState(v).tag == tag) return v;
            for (auto& subview : viewState(v).subviews) {
                if (auto found = subview.send<"viewWithTag:", UIView>(tag)) return found;
            }
            return UIView();
        })
        .method<"willMoveToSuperview:">([](UIView, UIView) {})
        .method<"didMoveToSuperview">([](UIView) {})
        .method<"willMoveToWindow:">([](UIView, UIWindow) {})
        .method<"didMoveToWindow">([](UIView) {})
        .method<"didAddSubview:">([](UIView, UIView) {})
        .method<"willRemoveSubview:">([](UIView, UIView) {});
}

}  // namespace simulator
