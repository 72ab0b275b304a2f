#include "simulator/services/marquee_view.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/now_playing.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/parts.hpp"
#include "simulator/uikit/scene.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

constexpr double pause = 2;     // seconds at rest before each round
constexpr double rate = 30;     // points a second
constexpr double fade = 10;     // points at each edge
constexpr double overhang = 4;  // lines may reach so far above and below without being cut

struct MarqueeContentView : UIView {
    static constexpr FixedString name{"_MPUMarqueeContentView"};
    using UIView::UIView;
};

// The marquees that scroll or wait to; each is taken off when it goes.
std::vector<MPUMarqueeView>& enabledMarquees() {
    static auto& all = *new std::vector<MPUMarqueeView>;
    return all;
}

struct MarqueeState {
    MPUMarqueeView self;
    Strong<UIView> content;
    Strong<UIView> sizing;  // as wide as the content
    Object reference;       // not owned
    double gap;             // points between two rounds
    double width;           // of the content in this round
    double start;           // of this round, seconds
    bool enabled;

    ~MarqueeState() { std::erase(enabledMarquees(), self); }
};

MarqueeState& marquee(MPUMarqueeView view) { return stateOf<MarqueeState>(view); }

double contentWidth(const MarqueeState& state) {
    return state.sizing ? state.sizing.bounds().size.width : 0;
}

bool isTooWide(const MarqueeState& state) {
    return state.content && contentWidth(state) > valuesOf(state.self).bounds.size.width;
}

// How far the content has gone after that many seconds, in a round of that length in points.
double offsetAfter(double seconds, double round) {
    const double wholeRound = pause + round / rate;
    const double within = seconds - std::floor(seconds / wholeRound) * wholeRound;
    return within <= pause ? 0 : (within - pause) * rate;
}

void showAt(const MarqueeState& state, double offset) {
    valuesOf(state.content).bounds.origin = {offset, -overhang};
}

// A new text begins at its beginning.
void advance(MarqueeState& state) {
    const double now = Clock::shared().now();
    if (state.width != contentWidth(state)) {
        state.width = contentWidth(state);
        state.start = now;
    }
    if (!state.content) return;
    showAt(state, isTooWide(state) ? offsetAfter(now - state.start, state.width + state.gap) : 0);
}

void advanceAll() {
    for (MPUMarqueeView view : enabledMarquees()) advance(marquee(view));
}

MPUMarqueeView initWithFrame(MPUMarqueeView raw, CGRect frame) {
    auto self = super<MPUMarqueeView, "initWithFrame:", MPUMarqueeView>(raw, frame);
    if (!self) return self;
    MarqueeState& state = marquee(self);
    state.self = self;
    state.content = create<MarqueeContentView, "initWithFrame:">(
        rect(0, -overhang, frame.size.width, frame.size.height + 2 * overhang));
    if (!state.content) return self;
    state.content.setAutoresizingMask(flexibleSize);
    state.content.setClipsToBounds(true);
    addPart(self, state.content);
    showAt(state, 0);
    return self;
}

bool isEnabled(MPUMarqueeView self) { return marquee(self).enabled; }

void setEnabled(MPUMarqueeView self, bool enabled) {
    MarqueeState& state = marquee(self);
    if (std::exchange(state.enabled, enabled) == enabled) return;
    if (enabled) {
        state.start = Clock::shared().now();
        enabledMarquees().push_back(self);
    } else {
        std::erase(enabledMarquees(), self);
        if (state.content) showAt(state, 0);
    }
}

// From clear over opaque to clear, over the width of the content view.
rendering::Node fadingMask(rendering::Size size, double offset) {
    constexpr rendering::Colour clear{0, 0, 0, 0}, opaque{0, 0, 0, 1};
    rendering::Node mask = rendering::nodeWithFrame("Fade", {{0, 0}, size});
    const double part = std::min(0.5, fade / size.width);
    rendering::Gradient gradient;
    gradient.start = {0, 0.5};
    gradient.end = {1, 0.5};
    // At rest the beginning is whole.
    gradient.stops = {
        {0, offset > 0 ? clear : opaque}, {part, opaque}, {1 - part, opaque}, {1, clear}};
    mask.content = gradient;
    mask.position.x += offset;
    mask.position.y -= overhang;
    return mask;
}

// The content once more behind itself.
void finish(UIView view, rendering::Node& node) {
    if (!view.isKindOfClass(classOf<MarqueeContentView>())) return;
    UIView parent = viewState(view).superview;
    if (!parent.isKindOfClass(classOf<MPUMarqueeView>())) return;
    const MarqueeState& state = marquee(as<MPUMarqueeView>(parent));
    if (!state.enabled || !isTooWide(state)) return;
    std::vector<rendering::Node> again = node.children;
    for (rendering::Node& child : again) child.position.x += state.width + state.gap;
    node.children.insert(node.children.end(), again.begin(), again.end());
    node.mask =
        std::make_shared<rendering::Node>(fadingMask(node.bounds.size, node.bounds.origin.x));
}

}  // namespace

void registerMarqueeView() {
    standIn<MarqueeContentView, UIView>();
    standIn<MPUMarqueeView, UIView, MarqueeState>()
        .method<"initWithFrame:", &initWithFrame>()
        .readonly<"contentView", &MarqueeState::content>()
        .method<"isMarqueeEnabled", &isEnabled>()
        .method<"marqueeEnabled", &isEnabled>()
        .method<"setMarqueeEnabled:", &setEnabled>()
        .property<"animationReferenceView", &MarqueeState::reference>()
        .property<"viewForContentSize", &MarqueeState::sizing>()
        .property<"contentGap", &MarqueeState::gap>();
    Clock::shared().everyFrame(&advanceAll);
    addNodeFinish(&finish);
}

}  // namespace simulator
