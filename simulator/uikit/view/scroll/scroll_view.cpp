#include "simulator/uikit/view/scroll/scroll_view.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/animation/timing.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"

namespace simulator {

namespace {

using State = UIGestureRecognizer::State;

constexpr double runOut = 0.499;    // seconds of the speed that are still scrolled (0.998 a ms)
constexpr double flickSpeed = 200;  // points per second that turn a page, at any place
constexpr double rubber = 0.5;      // share of a drag beyond the content that is followed
constexpr double settleDuration = 0.35;
constexpr double offsetDuration = 0.3;  // of setContentOffset:animated:

enum class Motion : long { none, decelerating, offset };

// No constructor runs: a new view is zero bytes, so a flag says where it departs from UIKit's default,
// negated where the default is YES.
struct ScrollState {
    CGSize content;
    Object delegate;  // not owned
    Strong<UIPanGestureRecognizer> pan;
    CGPoint dragStart;
    CGPoint from, to;
    double began, duration;
    Motion motion;
    bool disabled, paging, dragging;
    bool noBounce, alwaysHorizontal, alwaysVertical;
    bool hurries;              // delaysContentTouches is NO
    bool keepsContentTouches;  // canCancelContentTouches is NO
    bool hidesHorizontal, hidesVertical;
    bool directionalLock, scrollsToTop;

    ~ScrollState();
};

ScrollState& scroll(UIScrollView view) { return stateOf<ScrollState>(view); }

long tracking = 0;

std::vector<UIScrollView>& moving() {
    static auto& views = *new std::vector<UIScrollView>;
    return views;
}

ScrollState::~ScrollState() {
    std::erase_if(moving(), [&](UIScrollView view) { return &scroll(view) == this; });
    if (dragging) --tracking;
}

template <FixedString message>
void tell(UIScrollView view) {
    Object delegate = scroll(view).delegate;
    if (delegate.respondsTo(selector<message>())) delegate.send<message>(view);
}

CGPoint offsetOf(UIScrollView view) { return valuesOf(view).bounds.origin; }

CGPoint limit(UIScrollView view) {
    CGSize size = valuesOf(view).bounds.size;
    CGSize content = scroll(view).content;
    return {std::max(0.0, content.width - size.width), std::max(0.0, content.height - size.height)};
}

CGPoint clamped(UIScrollView view, CGPoint offset) {
    CGPoint most = limit(view);
    return {std::clamp(offset.x, 0.0, most.x), std::clamp(offset.y, 0.0, most.y)};
}

void setOffset(UIScrollView view, CGPoint offset) {
    if (offset == offsetOf(view)) return;
    change(layerOf(view), Property::boundsOrigin, {offset.x, offset.y});
    tell<"scrollViewDidScroll:">(view);
}

bool movesAcross(UIScrollView view) {
    return limit(view).x > 0 || (scroll(view).alwaysHorizontal && !scroll(view).noBounce);
}
bool movesDown(UIScrollView view) {
    return limit(view).y > 0 || (scroll(view).alwaysVertical && !scroll(view).noBounce);
}

void halt(UIScrollView view) {
    scroll(view).motion = Motion::none;
    std::erase(moving(), view);
}

void glide(UIScrollView view, CGPoint to, double duration, Motion motion) {
    ScrollState& s = scroll(view);
    s.from = offsetOf(view);
    s.to = to;
    s.began = Clock::shared().now();
    s.duration = duration;
    s.motion = motion;
    std::erase(moving(), view);
    moving().push_back(view);
}

void step(UIScrollView view) {
    ScrollState& s = scroll(view);
    double elapsed = Clock::shared().now() - s.began;
    double p = progress(Curve::easeOut(), elapsed + 1e-9, s.duration);
    setOffset(view, {s.from.x + (s.to.x - s.from.x) * p, s.from.y + (s.to.y - s.from.y) * p});
    if (p < 1) return;
    Motion ended = s.motion;
    halt(view);
    if (ended == Motion::decelerating) tell<"scrollViewDidEndDecelerating:">(view);
    if (ended == Motion::offset) tell<"scrollViewDidEndScrollingAnimation:">(view);
}

void stepAll() {
    auto views = moving();
    for (UIScrollView view : views) {
        if (std::find(moving().begin(), moving().end(), view) == moving().end()) continue;
        Strong<UIScrollView> kept = retained(view);
        step(view);
    }
}

// The page that a release leads to: a flick turns one page on from where the drag began.
double pageTarget(double offset, double start, double velocity, double page) {
    if (page <= 0) return offset;
    double first = std::round(start / page);
    double nearest = std::round(offset / page);
    if (std::abs(velocity) > flickSpeed && nearest == first) nearest += velocity > 0 ? 1 : -1;
    return std::clamp(nearest, first - 1, first + 1) * page;
}

CGPoint targetOf(UIScrollView view, CGPoint velocity) {
    const ScrollState& s = scroll(view);
    CGPoint offset = offsetOf(view);
    CGSize page = valuesOf(view).bounds.size;
    if (s.paging) {
        return clamped(view, {pageTarget(offset.x, s.dragStart.x, velocity.x, page.width),
                              pageTarget(offset.y, s.dragStart.y, velocity.y, page.height)});
    }
    return clamped(view, {offset.x + velocity.x * runOut, offset.y + velocity.y * runOut});
}

void release(UIScrollView view, CGPoint velocity) {
    ScrollState& s = scroll(view);
    s.dragging = false;
    --tracking;
    CGPoint target = targetOf(view, velocity);
    SEL willEnd = selector<"scrollViewWillEndDragging:withVelocity:targetContentOffset:">();
    if (s.delegate.respondsTo(willEnd)) {
        // Told in points per millisecond; the delegate may put the target elsewhere.
        sendMessage<void>(s.delegate.get(), willEnd, view.get(),
                          CGPoint{velocity.x / 1000, velocity.y / 1000}, &target);
    }
    bool runsOn = !(target == offsetOf(view));
    if (s.delegate.respondsTo(selector<"scrollViewDidEndDragging:willDecelerate:">())) {
        s.delegate.send<"scrollViewDidEndDragging:willDecelerate:">(view, runsOn);
    }
    if (!runsOn) return;
    tell<"scrollViewWillBeginDecelerating:">(view);
    double speed = std::hypot(velocity.x, velocity.y);
    bool settles = s.paging || speed < flickSpeed;
    glide(view, target, settles ? settleDuration : 1.2, Motion::decelerating);
}

// Beyond the content only a share of the drag is followed, or nothing without bounce.
double stretched(double offset, double most, bool bounces) {
    if (!bounces) return std::clamp(offset, 0.0, most);
    if (offset < 0) return offset * rubber;
    return offset > most ? most + (offset - most) * rubber : offset;
}

void drag(UIScrollView view) {
    ScrollState& s = scroll(view);
    CGPoint by = s.pan.send<"translationInView:", CGPoint>(UIView(viewState(view).superview));
    CGPoint most = limit(view);
    CGPoint offset = s.dragStart;
    if (movesAcross(view)) offset.x = stretched(s.dragStart.x - by.x, most.x, !s.noBounce);
    if (movesDown(view)) offset.y = stretched(s.dragStart.y - by.y, most.y, !s.noBounce);
    setOffset(view, offset);
}

void handlePan(UIScrollView view, UIPanGestureRecognizer pan) {
    ScrollState& s = scroll(view);
    switch (pan.state()) {
        case State::began:
            halt(view);
            s.dragging = true;
            ++tracking;
            s.dragStart = offsetOf(view);
            pan.setTranslation({0, 0}, UIView());
            tell<"scrollViewWillBeginDragging:">(view);
            break;
        case State::changed:
            drag(view);
            break;
        case State::ended:
        case State::cancelled: {
            if (!s.dragging) break;
            CGPoint v = pan.velocityInView(viewState(view).superview);
            if (pan.state() == State::cancelled) v = {0, 0};
            release(view, {movesAcross(view) ? -v.x : 0, movesDown(view) ? -v.y : 0});
            break;
        }
        default:
            break;
    }
}

// A drag along a direction in which there is nothing to scroll is left to others.
bool mayDrag(UIScrollView view) {
    const ScrollState& s = scroll(view);
    if (s.disabled) return false;
    CGPoint by = s.pan.send<"translationInView:", CGPoint>(UIView(viewState(view).superview));
    bool across = std::abs(by.x) > std::abs(by.y);
    if (across ? !movesAcross(view) : !movesDown(view)) return false;
    UITouch touch = TouchScreen::shared().touch();
    if (!touch || !touchState(touch).delivered || touchState(touch).view == view) return true;
    UIView content = touchState(touch).view;
    return !s.keepsContentTouches && view.send<"touchesShouldCancelInContentView:", bool>(content);
}

void addOffsets(const Table<UIScrollView>& views) {
    views.method<"contentOffset">([](UIScrollView v) { return offsetOf(v); })
        .method<"setContentOffset:">([](UIScrollView v, CGPoint offset) {
            halt(v);
            setOffset(v, offset);
        })
        .method<"setContentOffset:animated:">([](UIScrollView v, CGPoint offset, bool animated) {
            halt(v);
            if (!animated) return setOffset(v, offset);
            if (offset == offsetOf(v)) return;
            glide(v, offset, offsetDuration, Motion::offset);
        })
        .method<"scrollRectToVisible:animated:">([](UIScrollView v, CGRect r, bool animated) {
            CGRect shown = valuesOf(v).bounds;
            auto along = [](double at, double size, double from, double span) {
                if (at < from) return at;
                return at + size > from + span ? at + size - span : from;
            };
            CGPoint to{along(r.origin.x, r.size.width, shown.origin.x, shown.size.width),
                       along(r.origin.y, r.size.height, shown.origin.y, shown.size.height)};
            v.send<"setContentOffset:animated:">(clamped(v, to), animated);
        })
        .property<"contentSize", &ScrollState::content>();
}

void addFlags(const Table<UIScrollView>& views) {
    views.property<"delegate", &ScrollState::delegate>()
        .method<"isScrollEnabled">([](UIScrollView v) { return !scroll(v).disabled; })
        .method<"setScrollEnabled:">([](UIScrollView v, bool enabled) {
            scroll(v).disabled = !enabled;
            scroll(v).pan.send<"setEnabled:">(enabled);  // ends a drag
        })
        .flag<"isPagingEnabled", "setPagingEnabled:", &ScrollState::paging>()
        .flag<"isDirectionalLockEnabled",
              "setDirectionalLockEnabled:", &ScrollState::directionalLock>()
        .property<"alwaysBounceHorizontal", &ScrollState::alwaysHorizontal>()
        .property<"alwaysBounceVertical", &ScrollState::alwaysVertical>()
        .property<"scrollsToTop", &ScrollState::scrollsToTop>()
        .method<"bounces">([](UIScrollView v) { return !scroll(v).noBounce; })
        .method<"setBounces:">([](UIScrollView v, bool yes) { scroll(v).noBounce = !yes; })
        .method<"delaysContentTouches">([](UIScrollView v) { return !scroll(v).hurries; })
        .method<"setDelaysContentTouches:">(
            [](UIScrollView v, bool yes) { scroll(v).hurries = !yes; })
        .method<"canCancelContentTouches">(
            [](UIScrollView v) { return !scroll(v).keepsContentTouches; })
        .method<"setCanCancelContentTouches:">(
            [](UIScrollView v, bool yes) { scroll(v).keepsContentTouches = !yes; })
        .method<"showsHorizontalScrollIndicator">(
            [](UIScrollView v) { return !scroll(v).hidesHorizontal; })
        .method<"setShowsHorizontalScrollIndicator:">(
            [](UIScrollView v, bool yes) { scroll(v).hidesHorizontal = !yes; })
        .method<"showsVerticalScrollIndicator">(
            [](UIScrollView v) { return !scroll(v).hidesVertical; })
        .method<"setShowsVerticalScrollIndicator:">(
            [](UIScrollView v, bool yes) { scroll(v).hidesVertical = !yes; })
        .method<"setContentInsetAdjustmentBehavior:">([](UIScrollView, long) {});
}

}  // namespace

bool delaysContent(UIScrollView view) { return !scroll(view).hurries && !scroll(view).disabled; }
bool isScrollTracking() { return tracking > 0; }

void registerScrollView() {
    auto views = table<UIScrollView, UIView, ScrollState>();
    views
        .method<"initWithFrame:">([](UIScrollView self, CGRect frame) -> UIScrollView {
            auto view = super<UIScrollView, "initWithFrame:", UIScrollView>(self, frame);
            if (!view) return view;
            valuesOf(view).masksToBounds = true;
            Object target = view;
            scroll(view).pan = create<UIPanGestureRecognizer, "initWithTarget:action:">(
                target, selector<"_handlePan:">());
            view.addGestureRecognizer(scroll(view).pan);
            return view;
        })
        .method<"panGestureRecognizer">(
            [](UIScrollView v) -> UIPanGestureRecognizer { return scroll(v).pan; })
        .method<"_handlePan:">(
            [](UIScrollView v, UIPanGestureRecognizer pan) { handlePan(v, pan); })
        .method<"gestureRecognizerShouldBegin:">(
            [](UIScrollView v, UIGestureRecognizer recognizer) -> bool {
                return !(recognizer == scroll(v).pan) || mayDrag(v);
            })
        .method<"touchesShouldCancelInContentView:">([](UIScrollView, UIView content) -> bool {
            return !content.isKindOfClass(classOf<UIControl>());
        })
        .method<"isDragging">([](UIScrollView v) -> bool { return scroll(v).dragging; })
        .method<"isTracking">([](UIScrollView v) -> bool { return scroll(v).dragging; })
        .method<"isDecelerating">(
            [](UIScrollView v) -> bool { return scroll(v).motion == Motion::decelerating; });
    addOffsets(views);
    addFlags(views);
    Clock::shared().everyFrame([] { stepAll(); });
}

}  // namespace simulator
