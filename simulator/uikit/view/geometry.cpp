// UIView's geometry: derived frames, conversions, autoresizing.
#include "simulator/uikit/geometry.hpp"

#include <algorithm>

#include "simulator/uikit/view/scroll/scroll_view.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

UIView rootOf(UIView view) {
    while (viewState(view).superview) view = viewState(view).superview;
    return view;
}

// Into the coordinates of the topmost view.
CGAffineTransform toRoot(UIView view) {
    CGAffineTransform sum = identityTransform;
    for (; viewState(view).superview; view = viewState(view).superview) {
        sum = geometry::concat(sum, toParent(valuesOf(view)));
    }
    return sum;
}

// UIViewAutoresizing bits of one axis: the margin before, the size, the margin after.
struct Axis {
    unsigned long before, size, after;
};
constexpr Axis horizontal{1, 2, 4}, vertical{8, 16, 32};

// Shares what the superview grew by among the parts that may change: in proportion to what each
// measures, evenly when all of them measure nothing. A size that would become negative is none.
void stretch(unsigned long mask, Axis axis, double before, double now, double& origin,
             double& size) {
    const bool first = mask & axis.before, middle = mask & axis.size, last = mask & axis.after;
    const int parts = first + middle + last;
    if (parts == 0) return;
    const double after = before - origin - size;
    const double flexible = first * origin + middle * size + last * after;
    const double growth = now - before;
    auto share = [&](double part) {
        return flexible == 0 ? growth / parts : growth * part / flexible;
    };
    const double offset = first ? share(origin) : 0;
    if (middle) size = std::max(0.0, size + share(size));
    origin += offset;
}

void autoresize(UIView view, CGSize before, CGSize now) {
    unsigned long mask = viewState(view).autoresizing;
    if (mask == 0) return;
    CGRect frame = frameOf(valuesOf(view));
    stretch(mask, horizontal, before.width, now.width, frame.origin.x, frame.size.width);
    stretch(mask, vertical, before.height, now.height, frame.origin.y, frame.size.height);
    view.setFrame(frame);
}

CGPoint convert(const CGAffineTransform& t, CGPoint point) { return geometry::apply(t, point); }
CGRect convert(const CGAffineTransform& t, CGRect rect) { return geometry::boundingBox(t, rect); }

}  // namespace

CGAffineTransform conversionToScreen(UIView from) {
    return geometry::concat(toRoot(from), toParent(valuesOf(rootOf(from))));
}

CGAffineTransform conversion(UIView from, UIView to) {
    if (!from && !to) return identityTransform;
    if (!to) return toRoot(from);
    if (!from) return geometry::inverted(toRoot(to));
    if (rootOf(from) == rootOf(to)) {
        return geometry::concat(toRoot(from), geometry::inverted(toRoot(to)));
    }
    return geometry::concat(conversionToScreen(from), geometry::inverted(conversionToScreen(to)));
}

void boundsDidChange(UIView view, CGRect before) {
    CGRect now = valuesOf(view).bounds;
    if (now.size == before.size) {
        if (view.isKindOfClass(classOf<UIScrollView>())) markNeedsLayout(view);
        return;
    }
    markNeedsLayout(view);
    if (view.isKindOfClass(classOf<UIScrollView>())) {
        scrollSizeChanged(as<UIScrollView>(view), before.size);
    }
    // What a superview does to its subviews in its own layout does not ask for another.
    UIView superview = viewState(view).superview;
    if (superview && !viewState(superview).layingOut) markNeedsLayout(superview);
    if (viewState(view).keepsSubviewSizes) return;
    auto subviews = viewState(view).subviews;
    for (auto& subview : subviews) autoresize(subview, before.size, now.size);
}

void addViewGeometry(const Table<UIView>& views) {
    views.method<"frame">([](UIView v) -> CGRect { return frameOf(valuesOf(v)); })
        .method<"setFrame:">([](UIView v, CGRect frame) { setFrame(layerOf(v), frame); })
        .method<"bounds">([](UIView v) -> CGRect { return valuesOf(v).bounds; })
        .method<"setBounds:">([](UIView v, CGRect bounds) { setBounds(layerOf(v), bounds); })
        .method<"center">([](UIView v) -> CGPoint { return valuesOf(v).position; })
        .method<"setCenter:">(
            [](UIView v, CGPoint c) { change(layerOf(v), Property::position, {c.x, c.y}); })
        .method<"transform">([](UIView v) -> CGAffineTransform { return valuesOf(v).transform; })
        .method<"setTransform:">([](UIView v, CGAffineTransform t) {
            change(layerOf(v), Property::transform, {t.a, t.b, t.c, t.d, t.tx, t.ty});
        })
        .property<"autoresizingMask", &ViewState::autoresizing>()
        .method<"autoresizesSubviews">(
            [](UIView v) -> bool { return !viewState(v).keepsSubviewSizes; })
        .method<"setAutoresizesSubviews:">(
            [](UIView v, bool yes) { viewState(v).keepsSubviewSizes = !yes; })
        .method<"translatesAutoresizingMaskIntoConstraints">(
            [](UIView v) -> bool { return !viewState(v).ownConstraints; })
        .method<"setTranslatesAutoresizingMaskIntoConstraints:">(
            [](UIView v, bool yes) { viewState(v).ownConstraints = !yes; })
        .method<"convertPoint:toView:">(
            [](UIView v, CGPoint p, UIView to) -> CGPoint { return convert(conversion(v, to), p); })
        .method<"convertPoint:fromView:">([](UIView v, CGPoint p, UIView from) -> CGPoint {
            return convert(conversion(from, v), p);
        })
        .method<"convertRect:toView:">(
            [](UIView v, CGRect r, UIView to) -> CGRect { return convert(conversion(v, to), r); })
        .method<"convertRect:fromView:">([](UIView v, CGRect r, UIView from) -> CGRect {
            return convert(conversion(from, v), r);
        })
        .method<"intrinsicContentSize">([](UIView) -> CGSize { return {-1, -1}; })
        .method<"sizeThatFits:">([](UIView v, CGSize) -> CGSize { return valuesOf(v).bounds.size; })
        .method<"sizeToFit">([](UIView v) {
            CGRect bounds = valuesOf(v).bounds;
            bounds.size = v.send<"sizeThatFits:", CGSize>(bounds.size);
            // The corner stays, not the centre.
            CGRect frame = frameOf(valuesOf(v));
            v.setBounds(bounds);
            CGRect grown = frameOf(valuesOf(v));
            CGPoint center = valuesOf(v).position;
            v.setCenter({center.x + frame.origin.x - grown.origin.x,
                         center.y + frame.origin.y - grown.origin.y});
        })
        .method<"invalidateIntrinsicContentSize">([](UIView) {});
}

}  // namespace simulator
