#include "simulator/uikit/animation/animation.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

// The clock's steps do not add up exactly: so close to the end is the end. Seconds.
constexpr double rounding = Clock::frame * 1e-6;

struct OpenBlock {
    AnimationRequest request;
    std::shared_ptr<AnimationGroup> group;  // empty inside performWithoutAnimation:
};

std::vector<OpenBlock>& openBlocks() {
    static auto& blocks = *new std::vector<OpenBlock>;
    return blocks;
}
bool enabled = true;

// Also when the block raises.
struct BlockScope {
    explicit BlockScope(OpenBlock block) { openBlocks().push_back(std::move(block)); }
    ~BlockScope() { openBlocks().pop_back(); }
    BlockScope(const BlockScope&) = delete;
    BlockScope& operator=(const BlockScope&) = delete;
};

// While the block of performWithoutAnimation: runs, also for blocks inside it.
struct Disabled {
    Disabled() : before(std::exchange(enabled, false)) {}
    ~Disabled() { enabled = before; }
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;
    bool before;
};

// A nested block takes the duration and the curve of the outer one unless it says otherwise.
AnimationRequest inherit(AnimationRequest request) {
    if (openBlocks().empty() || !openBlocks().back().group) return request;
    const AnimationRequest& outer = openBlocks().back().request;
    if (!(request.options & overrideInheritedDuration)) {
        request.duration = outer.duration;
        request.delay = outer.delay;
    }
    if (!(request.options & overrideInheritedCurve)) request.timing = outer.timing;
    return request;
}

void removeAnimations(CALayer layer, Property property, Stopping stopping) {
    auto& animations = layerState(layer).animations;
    std::vector<RunningAnimation> gone;
    for (auto it = animations.begin(); it != animations.end();) {
        if (it->property == property) {
            gone.push_back(std::move(*it));
            it = animations.erase(it);
        } else {
            ++it;
        }
    }
    for (auto& animation : gone) animation.group->lost(stopping == Stopping::atOnce);
}

RunningAnimation* find(LayerState& state, Property property) {
    for (RunningAnimation& animation : state.animations) {
        if (animation.property == property) return &animation;
    }
    return nullptr;
}

}  // namespace

AnimationGroup::AnimationGroup(const AnimationRequest& request, Finished completion)
    : request_(request),
      completion_(std::move(completion)),
      start_(Clock::shared().now() + std::max(request.delay, 0.0)) {}

double AnimationGroup::progressAt(double time) const {
    double elapsed = time - start_;
    if (std::abs(elapsed - request_.duration) <= rounding) elapsed = request_.duration;
    if (!(request_.options & repeats) || elapsed < 0) {
        return progress(request_.timing, elapsed, request_.duration);
    }
    double rounds = elapsed / request_.duration;
    double within = rounds - std::floor(rounds);
    bool back = (request_.options & autoreverses) && std::fmod(std::floor(rounds), 2) == 1;
    return progress(request_.timing, (back ? 1 - within : within) * request_.duration,
                    request_.duration);
}

void AnimationGroup::joined(CALayer layer) {
    ++running_;
    layers_.push_back(retained(layer));
}

void AnimationGroup::lost(bool atOnce) {
    finished_ = false;
    if (--running_ > 0) return;
    auto self = shared_from_this();
    Clock::shared().withdraw(ticket_);
    if (atOnce) {
        complete();
    } else {
        Clock::shared().post([self] { self->complete(); });
    }
}

void AnimationGroup::begin() {
    auto self = shared_from_this();
    if (running_ == 0) {
        if (finished_) Clock::shared().post([self] { self->complete(); });
    } else if (!(request_.options & repeats)) {
        ticket_ =
            Clock::shared().at(start_ + request_.duration - rounding, [self] { self->end(); });
    }
}

void AnimationGroup::end() {
    auto self = shared_from_this();
    for (Strong<CALayer>& layer : layers_) {
        std::erase_if(layerState(layer).animations,
                      [&](const RunningAnimation& a) { return a.group == self; });
    }
    running_ = 0;
    complete();
}

void AnimationGroup::complete() {
    if (std::exchange(completed_, true)) return;
    layers_.clear();
    Finished completion = std::move(completion_);
    if (completion) completion(finished_);
}

void animate(const AnimationRequest& asked, BlockRef<void()> changes, Finished completion) {
    AnimationRequest request = inherit(asked);
    auto group = std::make_shared<AnimationGroup>(request, std::move(completion));
    bool moves = enabled && request.duration + request.delay > 0;
    {
        BlockScope scope({request, moves ? group : nullptr});
        // By a copy, as of every block that the phone gets: only who moves a block signed on arm64e
        // tells whether its functions are signed for where they lie.
        KeptBlock<void()>{changes}();
    }
    group->begin();
}

void withoutAnimation(BlockRef<void()> changes) {
    BlockScope scope(OpenBlock{{}, nullptr});
    Disabled disabled;
    KeptBlock<void()>{changes}();
}

bool animationsEnabled() { return enabled; }
void setAnimationsEnabled(bool yes) { enabled = yes; }

Timing curveFromOptions(unsigned long options) {
    constexpr Curve curves[] = {Curve::easeInOut(), Curve::easeIn(), Curve::easeOut(),
                                Curve::linear()};
    return curves[(options >> 16) & 3];
}

void noteChange(CALayer layer, Property property, const Numbers& before) {
    if (openBlocks().empty()) return;
    auto group = openBlocks().back().group;
    LayerState& state = layerState(layer);
    if (!group || !enabled || !state.delegate.isKindOfClass(classOf<UIView>())) return;
    if (!windowOf(as<UIView>(state.delegate))) return;  // nothing moves that is in no window
    RunningAnimation animation{property, before, read(state.values, property), group};
    if (isAdditive(property)) {
        for (std::size_t i = 0; i < before.size(); ++i) animation.from[i] -= animation.to[i];
    } else if (RunningAnimation* earlier = find(state, property)) {
        if (earlier->group == group) {  // set twice in one block: the same way, another end
            earlier->to = animation.to;
            return;
        }
        if (group->options() & beginFromCurrentState) {
            animation.from = read(presentationValues(layer), property);
        }
        removeAnimations(layer, property, Stopping::nextTurn);
    }
    state.animations.push_back(std::move(animation));
    group->joined(layer);
}

void stopAnimations(CALayer layer, Stopping stopping) {
    Strong<CALayer> kept = retained(layer);
    auto gone = std::exchange(layerState(layer).animations, {});
    for (auto& animation : gone) animation.group->lost(stopping == Stopping::atOnce);
}

bool isAnimating(CALayer layer) { return !layerState(layer).animations.empty(); }

bool refusesTouches(CALayer layer) {
    const auto& animations = layerState(layer).animations;
    return std::any_of(animations.begin(), animations.end(),
                       [](const RunningAnimation& a) { return a.group->refusesTouches(); });
}

std::string propertyName(Property property) {
    constexpr const char* names[] = {
        "position", "bounds.origin", "bounds.size",     "transform",
        "opacity",  "cornerRadius",  "backgroundColor", "contentsMultiplyColor"};
    return names[static_cast<std::size_t>(property)];
}

}  // namespace simulator
