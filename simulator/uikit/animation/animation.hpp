// Block animations. While a block runs, changes of the layers of views in windows start animations
// that belong to the block's group; the group's completion runs once, when all of them have gone.
//
// Position, bounds and transform are additive: each animation is an offset from old minus new to
// zero, and any number of them add up. The others replace: animating again finishes the earlier one
// with NO.
#pragma once

#include <memory>
#include <string>

#include "simulator/uikit/animation/timing.hpp"
#include "simulator/uikit/layer/layer.hpp"

namespace simulator {

enum AnimationOption : unsigned long {
    allowUserInteraction = 1 << 1,
    beginFromCurrentState = 1 << 2,
    repeats = 1 << 3,
    autoreverses = 1 << 4,
    overrideInheritedDuration = 1 << 5,
    overrideInheritedCurve = 1 << 6,
};

using Finished = KeptBlock<void(bool)>;

struct AnimationRequest {
    double duration;
    double delay;
    unsigned long options;
    Timing timing;
};

class AnimationGroup : public std::enable_shared_from_this<AnimationGroup> {
  public:
    AnimationGroup(const AnimationRequest& request, Finished completion);

    double progressAt(double time) const;
    bool refusesTouches() const { return !(request_.options & allowUserInteraction); }
    unsigned long options() const { return request_.options; }

    void joined(CALayer layer);
    // One of its animations was taken off before its end.
    void lost(bool atOnce);
    // The block has been run: waits for the end, or completes in the next turn when nothing moved.
    void begin();

  private:
    void end();
    void complete();

    AnimationRequest request_;
    Finished completion_;
    double start_;
    std::vector<Strong<CALayer>> layers_;  // kept while they move
    std::size_t running_ = 0;
    bool finished_ = true;
    bool completed_ = false;
    std::uint64_t ticket_ = 0;
};

void animate(const AnimationRequest& request, BlockRef<void()> changes, Finished completion);
void withoutAnimation(BlockRef<void()> changes);
bool animationsEnabled();
void setAnimationsEnabled(bool enabled);
// Options carry the curve in bits 16 to 19.
Timing curveFromOptions(unsigned long options);

// Told by the layer of every change of a model value.
void noteChange(CALayer layer, Property property, const Numbers& before);

enum class Stopping { atOnce, nextTurn };  // when the completions run
void stopAnimations(CALayer layer, Stopping stopping);
bool isAnimating(CALayer layer);
// An animation on the layer was started without allowUserInteraction.
bool refusesTouches(CALayer layer);

std::string propertyName(Property property);

}  // namespace simulator
