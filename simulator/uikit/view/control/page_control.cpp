// UIPageControl: dots. A tap turns one page, toward the side that was tapped, and says so; it does
// not scroll anything itself.
#include <algorithm>

#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/view/control/control.hpp"

namespace simulator {

namespace {

constexpr double dot = 7, spacing = 16, height = 37;  // points

struct PageState {
    long pages, current;
    bool hidesSingle, defers;
    Strong<UIColor> tint, currentTint;
    std::vector<Strong<UIView>> dots;
};

PageState& pages(UIPageControl view) { return stateOf<PageState>(view); }

void colourDots(UIPageControl view) {
    PageState& s = pages(view);
    UIColor plain = s.tint ? UIColor(s.tint.get()) : makeColor({1, 1, 1, 0.3});
    UIColor marked = s.currentTint ? UIColor(s.currentTint.get()) : UIColor::white();
    for (std::size_t i = 0; i < s.dots.size(); ++i) {
        s.dots[i].setBackgroundColor(static_cast<long>(i) == s.current ? marked : plain);
    }
}

void makeDots(UIPageControl view) {
    PageState& s = pages(view);
    for (auto& old : s.dots) removeFromSuperview(old);
    s.dots.clear();
    for (long i = 0; i < s.pages; ++i) {
        auto mark = create<UIView, "initWithFrame:">(rect(0, 0, dot, dot));
        viewState(mark).interactionDisabled = true;
        layerState(layerOf(mark)).values.cornerRadius = dot / 2;
        insertSubview(view, mark, s.dots.size());
        s.dots.push_back(mark);
    }
    colourDots(view);
    markNeedsLayout(view);
}

void placeDots(UIPageControl view) {
    PageState& s = pages(view);
    CGRect bounds = valuesOf(view).bounds;
    double x = bounds.size.width / 2 - spacing * static_cast<double>(s.pages - 1) / 2;
    for (auto& mark : s.dots) {
        valuesOf(mark).hidden = s.hidesSingle && s.pages == 1;
        mark.setCenter({x, bounds.size.height / 2});
        x += spacing;
    }
}

void setCurrent(UIPageControl view, long page) {
    PageState& s = pages(view);
    s.current = std::clamp(page, 0L, std::max(0L, s.pages - 1));
    colourDots(view);
}

void tapped(UIPageControl view, UITouch touch) {
    PageState& s = pages(view);
    CGPoint place = fromScreen(touchState(touch).location, view);
    CGRect bounds = valuesOf(view).bounds;
    if (!geometry::contains(bounds, place)) return;
    long before = s.current;
    setCurrent(view, s.current + (place.x < bounds.size.width / 2 ? -1 : 1));
    if (s.current != before) {
        sendControlEvents(UIControl(view.get()), valueChanged, Object());
    }
}

CGSize sizeFor(long count) {
    return {count > 0 ? dot + spacing * static_cast<double>(count - 1) : 0, height};
}

}  // namespace

void registerPageControl() {
    table<UIPageControl, UIControl, PageState>()
        .readonly<"numberOfPages", &PageState::pages>()
        .method<"setNumberOfPages:">([](UIPageControl v, long count) {
            pages(v).pages = std::max(0L, count);
            setCurrent(v, pages(v).current);
            makeDots(v);
        })
        .readonly<"currentPage", &PageState::current>()
        .method<"setCurrentPage:">([](UIPageControl v, long page) { setCurrent(v, page); })
        .readonly<"hidesForSinglePage", &PageState::hidesSingle>()
        .method<"setHidesForSinglePage:">([](UIPageControl v, bool hides) {
            pages(v).hidesSingle = hides;
            markNeedsLayout(v);
        })
        .property<"defersCurrentPageDisplay", &PageState::defers>()
        .readonly<"pageIndicatorTintColor", &PageState::tint>()
        .method<"setPageIndicatorTintColor:">([](UIPageControl v, UIColor color) {
            pages(v).tint = retained(color);
            colourDots(v);
        })
        .readonly<"currentPageIndicatorTintColor", &PageState::currentTint>()
        .method<"setCurrentPageIndicatorTintColor:">([](UIPageControl v, UIColor color) {
            pages(v).currentTint = retained(color);
            colourDots(v);
        })
        .method<"sizeForNumberOfPages:">([](UIPageControl, long n) { return sizeFor(n); })
        .method<"intrinsicContentSize">([](UIPageControl v) { return sizeFor(pages(v).pages); })
        .method<"sizeThatFits:">([](UIPageControl v, CGSize) { return sizeFor(pages(v).pages); })
        .method<"layoutSubviews">([](UIPageControl v) { placeDots(v); })
        .method<"endTrackingWithTouch:withEvent:">(
            [](UIPageControl v, UITouch touch, UIEvent) { tapped(v, touch); });
}

}  // namespace simulator
