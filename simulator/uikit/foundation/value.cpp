// What UIKit adds to NSValue, and timers on the phone's clock. Timers run in the default mode: they
// wait while a scroll view is being dragged.
#include <cstring>

#include "simulator/runtime/clock.hpp"
#include "simulator/uikit/foundation/additions.hpp"
#include "simulator/uikit/view/scroll/scroll_view.hpp"

namespace simulator {

namespace {

template <class T>
NSValue wrap(const T& value) {
    return sendClass<NSValue, "valueWithBytes:objCType:", NSValue>(static_cast<const void*>(&value),
                                                                   TypeCode<T>::value.data());
}
template <class T>
T unwrap(NSValue value) {
    T result{};
    const char* type = value.send<"objCType", const char*>();
    if (type && std::strcmp(type, TypeCode<T>::value.data()) == 0) {
        value.send<"getValue:">(static_cast<void*>(&result));
    }
    return result;
}

void addValues() {
    category<NSValue>()
        .classMethod<"valueWithCGRect:">([](Class, CGRect r) { return wrap(r); })
        .classMethod<"valueWithCGPoint:">([](Class, CGPoint p) { return wrap(p); })
        .classMethod<"valueWithCGSize:">([](Class, CGSize s) { return wrap(s); })
        .classMethod<"valueWithCGAffineTransform:">(
            [](Class, CGAffineTransform t) { return wrap(t); })
        .method<"CGRectValue">([](NSValue v) { return unwrap<CGRect>(v); })
        .method<"CGPointValue">([](NSValue v) { return unwrap<CGPoint>(v); })
        .method<"CGSizeValue">([](NSValue v) { return unwrap<CGSize>(v); })
        .method<"CGAffineTransformValue">([](NSValue v) { return unwrap<CGAffineTransform>(v); });
}

struct TimerState {
    KeptBlock<void(Object)> block;
    Strong<Object> target;
    Strong<Object> userInfo;
    SEL action;
    double interval;
    std::uint64_t ticket;
    bool repeats, invalid;
};

TimerState& timer(ClockTimer t) { return stateOf<TimerState>(t); }

void invalidate(ClockTimer t) {
    TimerState& s = timer(t);
    s.invalid = true;
    Clock::shared().withdraw(s.ticket);
    s.block = {};
    s.target = {};
    s.userInfo = {};
}

void fire(ClockTimer t) {
    TimerState& s = timer(t);
    auto block = s.block;
    Strong<Object> target = s.target;
    if (block) {
        block(Object(t));
    } else if (target) {
        sendMessage<void>(target.get(), s.action, t.get());
    }
    if (!s.repeats) invalidate(t);
}

void schedule(const Strong<ClockTimer>& t, double due) {
    timer(t).ticket = Clock::shared().at(due, [t, due] {
        if (timer(t).invalid) return;
        if (isScrollTracking()) return schedule(t, Clock::shared().now() + Clock::frame);
        fire(t);
        if (!timer(t).invalid) schedule(t, due + timer(t).interval);
    });
}

Strong<ClockTimer> makeTimer(double interval, bool repeats) {
    auto made = adopted(sendClass<ClockTimer, "alloc", ClockTimer>());
    timer(made).interval = interval > 0 ? interval : 0.0001;  // as the platform does with zero
    timer(made).repeats = repeats;
    return made;
}

Object started(Strong<ClockTimer> made) {
    schedule(made, Clock::shared().now() + timer(made).interval);
    return made.autoreleased();
}

// Foundation has timers of its own, on real time: their makers are replaced.
template <FixedString message, class Function>
void replace(Class cls, Function) {
    using Thunk = detail::LambdaThunk<Function, decltype(&Function::operator())>;
    auto implementation = reinterpret_cast<IMP>(&Thunk::template run<NSTimer>);
    Method own = class_getInstanceMethod(cls, selector<message>());
    if (!class_addMethod(cls, selector<message>(), implementation, Thunk::encoding.data())) {
        method_setImplementation(own, implementation);
    }
}

void replaceMakers() {
    Defined<NSTimer>::value = objc_getClass("NSTimer");
    Class maker = object_getClass(classObject(Defined<NSTimer>::value));
    replace<"scheduledTimerWithTimeInterval:repeats:block:">(
        maker, [](Class, double interval, bool repeats, BlockRef<void(Object)> block) -> Object {
            auto made = makeTimer(interval, repeats);
            timer(made).block = KeptBlock<void(Object)>(block);
            return started(std::move(made));
        });
    replace<"scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:">(
        maker,
        [](Class, double interval, Object target, SEL action, Object info, bool repeats) -> Object {
            auto made = makeTimer(interval, repeats);
            timer(made).target = retained(target);
            timer(made).action = action;
            timer(made).userInfo = retained(info);
            return started(std::move(made));
        });
}

void addTimers() {
    table<ClockTimer, NSTimer, TimerState>()
        .method<"invalidate">([](ClockTimer t) { invalidate(t); })
        .method<"isValid">([](ClockTimer t) -> bool { return !timer(t).invalid; })
        .method<"fire">([](ClockTimer t) { fire(t); })
        .method<"timeInterval">(
            [](ClockTimer t) -> double { return timer(t).repeats ? timer(t).interval : 0; })
        .readonly<"userInfo", &TimerState::userInfo>();
    replaceMakers();
}

}  // namespace

void addToFoundation() {
    addValues();
    addTimers();
}

}  // namespace simulator
