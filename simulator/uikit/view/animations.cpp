// UIView's animation calls.
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

using Changes = BlockRef<void()>;
using Completion = BlockRef<void(bool)>;

void withCurve(double duration, double delay, unsigned long options, Changes changes,
               Completion completion) {
    animate({duration, delay, options, curveFromOptions(options)}, changes, Finished(completion));
}

Timing springTiming(double duration, double damping, double velocity) {
    if (duration <= 0) return Curve::linear();
    return Spring(duration, damping, velocity);
}

}  // namespace

void addViewAnimations(const Table<UIView>& views) {
    views
        .classMethod<"animateWithDuration:animations:">(
            [](Class, double duration, Changes changes) {
                withCurve(duration, 0, 0, changes, Completion());
            })
        .classMethod<"animateWithDuration:animations:completion:">(
            [](Class, double duration, Changes changes, Completion completion) {
                withCurve(duration, 0, 0, changes, completion);
            })
        .classMethod<"animateWithDuration:delay:options:animations:completion:">(
            [](Class, double duration, double delay, unsigned long options, Changes changes,
               Completion completion) { withCurve(duration, delay, options, changes, completion); })
        .classMethod<
            "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:"
            "options:animations:completion:">(
            [](Class, double duration, double delay, double damping, double velocity,
               unsigned long options, Changes changes, Completion completion) {
                animate({duration, delay, options, springTiming(duration, damping, velocity)},
                        changes, Finished(completion));
            })
        .classMethod<"transitionWithView:duration:options:animations:completion:">(
            [](Class, UIView, double duration, unsigned long options, Changes changes,
               Completion completion) { withCurve(duration, 0, options, changes, completion); })
        .classMethod<"performWithoutAnimation:">(
            [](Class, Changes changes) { withoutAnimation(changes); })
        .classMethod<"setAnimationsEnabled:">([](Class, bool yes) { setAnimationsEnabled(yes); })
        .classMethod<"areAnimationsEnabled">([](Class) -> bool { return animationsEnabled(); });
}

}  // namespace simulator
