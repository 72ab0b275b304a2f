// UIView as a target of touches: hit testing and its recognisers.
#include <algorithm>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/geometry.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

// The limit is compared as the layer keeps it: an alpha of exactly 0.01 is hit. A view that is being
// animated without allowUserInteraction takes no new touches.
bool takesTouches(UIView view) {
    return !valuesOf(view).hidden && view.send<"isUserInteractionEnabled", bool>() &&
           !(valuesOf(view).opacity < 0.01f) && !refusesTouches(layerOf(view));
}

}  // namespace

UIView hitTest(UIView view, CGPoint point, Object event) {
    if (!takesTouches(view) || !view.send<"pointInside:withEvent:", bool>(point, event)) {
        return UIView();
    }
    auto subviews = viewState(view).subviews;
    for (auto it = subviews.rbegin(); it != subviews.rend(); ++it) {
        CGPoint inside = geometry::apply(geometry::inverted(toParent(valuesOf(*it))), point);
        if (UIView hit = it->hitTest(inside, event)) return hit;
    }
    return view;
}

void addViewTouches(const Table<UIView>& views) {
    views
        .method<"isUserInteractionEnabled">(
            [](UIView v) -> bool { return !viewState(v).interactionDisabled; })
        .method<"setUserInteractionEnabled:">(
            [](UIView v, bool yes) { viewState(v).interactionDisabled = !yes; })
        .flag<"isMultipleTouchEnabled", "setMultipleTouchEnabled:", &ViewState::multipleTouch>()
        .flag<"isExclusiveTouch", "setExclusiveTouch:", &ViewState::exclusiveTouch>()
        .method<"hitTest:withEvent:">(
            [](UIView v, CGPoint point, Object event) { return hitTest(v, point, event); })
        .method<"pointInside:withEvent:">([](UIView v, CGPoint point, Object) -> bool {
            return geometry::contains(valuesOf(v).bounds, point);
        })
        .method<"nextResponder">([](UIView v) -> UIResponder {
            if (viewState(v).controller) return viewState(v).controller;
            return viewState(v).superview;
        })
        .method<"gestureRecognizers">([](UIView v) -> NSArray {
            auto array = NSMutableArray::empty();
            for (auto& recognizer : viewState(v).recognizers) array.add(recognizer);
            return array;
        })
        .method<"addGestureRecognizer:">([](UIView v, UIGestureRecognizer recognizer) {
            requireKind<UIGestureRecognizer>("-[UIView addGestureRecognizer:]", recognizer);
            if (recognizer.view() == v) return;
            Strong<UIGestureRecognizer> kept = retained(recognizer);
            if (UIView old = recognizer.view()) {
                old.send<"removeGestureRecognizer:">(recognizer);
            }
            attach(recognizer, v);
            viewState(v).recognizers.push_back(kept);
        })
        .method<"removeGestureRecognizer:">([](UIView v, UIGestureRecognizer recognizer) {
            auto& all = viewState(v).recognizers;
            auto found = std::find(all.begin(), all.end(), recognizer);
            if (found == all.end()) return;
            Strong<UIGestureRecognizer> kept = *found;
            all.erase(found);
            attach(recognizer, UIView());
        })
        .method<"gestureRecognizerShouldBegin:">(
            [](UIView, UIGestureRecognizer) -> bool { return true; });
}

}  // namespace simulator
