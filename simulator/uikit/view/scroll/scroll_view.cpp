#include "simulator/uikit/view/scroll/scroll_view.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/animation/timing.hpp"
#include "simulator/uikit/gesture/recognizer.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(UIScrollViewPanGestureRecognizer, UIPanGestureRecognizer);

using State = UIGestureRecognizer::State;

constexpr double runOut = 0.499;    // seconds of the speed that are still scrolled (0.998 a ms)
constexpr double flickSpeed = 200;  // points per second that turn a page, at any place
constexpr double rubber = 0.55;     // how much of a drag beyond the content is followed at first
constexpr double lostPoints = 10;   // of a drag, before it begins
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
    bool touched;  // a finger is on it, or on its content
    bool stopped;  // by that finger, on its way
    bool noBounce, alwaysHorizontal, alwaysVertical;
    bool hurries;              // delaysContentTouches is NO
    bool keepsContentTouches;  // canCancelContentTouches is NO
    bool hidesHorizontal, hidesVertical;
    bool directionalLock;
    bool staysAtTap;  // scrollsToTop is NO

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

CGPoint limitFor(CGSize content, CGSize size) {
    return {std::max(0.0, content.width - size.width), std::max(0.0, content.height - size.height)};
}
CGPoint limit(UIScrollView view) {
    return limitFor(scroll(view).content, valuesOf(view).bounds.size);
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

// So much of a pull of d points is followed in a view of that size, as on devices; never all of it.
double followed(double d, double size) {
    return size > 0 ? (1 - 1 / (rubber * d / size + 1)) * size : 0;
}
// The pull that led there.
double pulled(double beyond, double size) {
    return beyond < size ? size / rubber * (1 / (1 - beyond / size) - 1) : beyond;
}

// Beyond the content a pull is followed less and less, or not at all without bounce.
double stretched(double offset, double most, double size, bool bounces) {
    if (!bounces) return std::clamp(offset, 0.0, most);
    if (offset < 0) return -followed(-offset, size);
    return offset > most ? most + followed(offset - most, size) : offset;
}
double unstretched(double offset, double most, double size) {
    if (offset < 0) return -pulled(-offset, size);
    return offset > most ? most + pulled(offset - most, size) : offset;
}

void drag(UIScrollView view) {
    ScrollState& s = scroll(view);
    CGPoint by = s.pan.send<"translationInView:", CGPoint>(UIView(viewState(view).superview));
    CGPoint most = limit(view);
    CGSize size = valuesOf(view).bounds.size;
    CGPoint offset = offsetOf(view);
    const bool bounces = !s.noBounce;
    if (movesAcross(view)) offset.x = stretched(s.dragStart.x - by.x, most.x, size.width, bounces);
    if (movesDown(view)) offset.y = stretched(s.dragStart.y - by.y, most.y, size.height, bounces);
    setOffset(view, offset);
}

// The points that it took to tell a drag from a touch are no part of it, however far the finger went
// in one step.
void beginDrag(UIScrollView view) {
    ScrollState& s = scroll(view);
    halt(view);
    s.dragging = true;
    s.stopped = false;
    ++tracking;
    CGPoint offset = offsetOf(view), most = limit(view);
    CGSize size = valuesOf(view).bounds.size;
    s.dragStart = {unstretched(offset.x, most.x, size.width),
                   unstretched(offset.y, most.y, size.height)};
    CGPoint by = s.pan.send<"translationInView:", CGPoint>(UIView());
    double distance = std::hypot(by.x, by.y);
    double rest = distance > lostPoints ? 1 - lostPoints / distance : 0;
    s.pan.setTranslation({by.x * rest, by.y * rest}, UIView());
    tell<"scrollViewWillBeginDragging:">(view);
    drag(view);
}

// A finger stops what runs on.
void fingerCame(UIScrollView view) {
    ScrollState& s = scroll(view);
    s.touched = true;
    if (s.motion != Motion::decelerating) return;
    halt(view);
    s.stopped = true;
    tell<"scrollViewDidEndDecelerating:">(view);
}

// One that was stopped and not dragged comes to rest at a page, and within its content.
void fingerLeft(UIScrollView view) {
    ScrollState& s = scroll(view);
    s.touched = false;
    if (!std::exchange(s.stopped, false)) return;
    CGPoint offset = offsetOf(view);
    s.dragStart = offset;
    CGPoint target = targetOf(view, {0, 0});
    if (target == offset) return;
    tell<"scrollViewWillBeginDecelerating:">(view);
    glide(view, target, settleDuration, Motion::decelerating);
}

// What shrinks takes the offset along; where it lies beyond the content already it stays.
void keepWithin(UIScrollView view, CGPoint limitBefore) {
    ScrollState& s = scroll(view);
    CGPoint most = limit(view);
    auto kept = [&](CGPoint p) -> CGPoint {
        return {most.x < limitBefore.x ? std::min(p.x, most.x) : p.x,
                most.y < limitBefore.y ? std::min(p.y, most.y) : p.y};
    };
    if (s.dragging) return;
    if (s.motion != Motion::none) {
        s.from = kept(s.from);
        s.to = kept(s.to);
    }
    setOffset(view, kept(offsetOf(view)));
}

void handlePan(UIScrollView view, UIPanGestureRecognizer pan) {
    ScrollState& s = scroll(view);
    switch (pan.state()) {
        case State::began:
            beginDrag(view);
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

UIScrollView scrolledBy(UIGestureRecognizer pan) {
    UIView view = recognizerState(pan).view;
    return view.isKindOfClass(classOf<UIScrollView>()) ? as<UIScrollView>(view) : UIScrollView();
}

// Knows when a finger comes and when it leaves, also one that never becomes a drag.
void registerPan() {
    using Pan = UIScrollViewPanGestureRecognizer;
    table<Pan, UIPanGestureRecognizer>()
        .method<"touchesBegan:withEvent:">([](Pan pan, Object touches, UIEvent event) {
            super<Pan, "touchesBegan:withEvent:">(pan, touches, event);
            if (UIScrollView view = scrolledBy(pan)) fingerCame(view);
        })
        .method<"reset">([](Pan pan) {
            super<Pan, "reset">(pan);
            if (UIScrollView view = scrolledBy(pan)) fingerLeft(view);
        });
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
        .readonly<"contentSize", &ScrollState::content>()
        .method<"setContentSize:">([](UIScrollView v, CGSize content) {
            CGPoint before = limit(v);
            scroll(v).content = content;
            keepWithin(v, before);
        });
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
        .method<"scrollsToTop">([](UIScrollView v) { return !scroll(v).staysAtTap; })
        .method<"setScrollsToTop:">([](UIScrollView v, bool yes) { scroll(v).staysAtTap = !yes; })
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

void scrollSizeChanged(UIScrollView view, CGSize before) {
    keepWithin(view, limitFor(scroll(view).content, before));
}

void registerScrollView() {
    registerPan();
    auto views = table<UIScrollView, UIView, ScrollState>();
    views
        .method<"initWithFrame:">([](UIScrollView self, CGRect frame) -> UIScrollView {
            auto view = super<UIScrollView, "initWithFrame:", UIScrollView>(self, frame);
            if (!view) return view;
            valuesOf(view).masksToBounds = true;
            Object target = view;
            scroll(view).pan = create<UIScrollViewPanGestureRecognizer, "initWithTarget:action:">(
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
        .method<"isTracking">(
            [](UIScrollView v) -> bool { return scroll(v).touched || scroll(v).dragging; })
        .method<"isDecelerating">(
            [](UIScrollView v) -> bool { return scroll(v).motion == Motion::decelerating; });
    addOffsets(views);
    addFlags(views);
    Clock::shared().everyFrame([] { stepAll(); });
}

}  // namespace simulator
