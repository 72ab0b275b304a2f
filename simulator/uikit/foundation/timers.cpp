// NSTimer and delayed messages on the phone's clock: what Foundation makes runs on real time. What runs
// in the default mode waits while a scroll view is being dragged, what runs in the common modes does
// not. Seconds of the clock.
#include <algorithm>
#include <vector>

#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/replacement.hpp"
#include "simulator/uikit/foundation/additions.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/scroll/scroll_view.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(NSDate, Object);

enum Modes : unsigned { byDefault = 1, whileTracking = 2 };

unsigned modesOf(NSString mode) {
    const std::string name = text(mode);
    if (name == "UITrackingRunLoopMode") return whileTracking;
    if (name == "NSRunLoopCommonModes" || name == "kCFRunLoopCommonModes") {
        return byDefault | whileTracking;
    }
    return byDefault;
}

bool mayRun(unsigned modes) { return modes & (isScrollTracking() ? whileTracking : byDefault); }

struct TimerState {
    KeptBlock<void(Object)> block;
    Strong<Object> target;
    Strong<Object> userInfo;
    SEL action;
    double interval;
    double due;
    double tolerance;
    std::uint64_t ticket;
    unsigned modes;  // none while it is in no run loop
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
    if (s.invalid) return;
    auto block = s.block;
    Strong<Object> target = s.target;
    if (block) {
        block(Object(t));
    } else if (target && s.action) {
        sendMessage<void>(target.get(), s.action, t.get());
    } else if (target) {  // Foundation makes its timers of an invocation so
        target.send<"invoke">();
    }
    if (!s.repeats) invalidate(t);
}

void schedule(const Strong<ClockTimer>& t, double time) {
    Clock::shared().withdraw(timer(t).ticket);
    timer(t).ticket = Clock::shared().at(time, [t] {
        TimerState& s = timer(t);
        if (s.invalid) return;
        if (!mayRun(s.modes)) return schedule(t, Clock::shared().now() + Clock::frame);
        const double due = s.due;
        fire(t);
        if (s.invalid) return;
        if (s.due == due) s.due = due + s.interval;  // unless it was moved meanwhile
        schedule(t, s.due);
    });
}

void addToLoop(ClockTimer t, unsigned modes) {
    TimerState& s = timer(t);
    if (s.invalid) return;
    const bool waits = std::exchange(s.modes, s.modes | modes) == 0;
    if (waits) schedule(retained(t), s.due);
}

NSDate dateOf(double time) {
    return sendClass<NSDate, "dateWithTimeIntervalSinceNow:", NSDate>(time - Clock::shared().now());
}
double timeOf(NSDate date) {
    return Clock::shared().now() + (date ? date.send<"timeIntervalSinceNow", double>() : 0);
}

Strong<ClockTimer> makeTimer(double interval, bool repeats) {
    auto made = adopted(sendClass<ClockTimer, "alloc", ClockTimer>());
    TimerState& s = timer(made);
    s.interval = interval > 0 ? interval : 0.0001;  // as the platform does with zero
    s.due = Clock::shared().now() + s.interval;
    s.repeats = repeats;
    return made;
}

Strong<ClockTimer> blockTimer(double interval, bool repeats, BlockRef<void(Object)> block) {
    auto made = makeTimer(interval, repeats);
    timer(made).block = KeptBlock<void(Object)>(block);
    return made;
}

Strong<ClockTimer> targetTimer(double interval, Object target, SEL action, Object info,
                               bool repeats) {
    auto made = makeTimer(interval, repeats);
    timer(made).target = retained(target);
    timer(made).action = action;
    timer(made).userInfo = retained(info);
    return made;
}

Object started(Strong<ClockTimer> made) {
    addToLoop(made, byDefault);
    return made.autoreleased();
}

// In place of the timer that alloc made; the caller owns it.
Object initialised(Object raw, NSDate date, Strong<ClockTimer> made) {
    raw.send<"release">();
    if (date) timer(made).due = timeOf(date);
    return Object(made.leak());
}

// Foundation has timers of its own, on real time: their makers are replaced.
template <FixedString message, class Function>
void replace(Class cls, Function) {
    using Thunk = detail::LambdaThunk<Function, decltype(&Function::operator())>;
    auto implementation = reinterpret_cast<IMP>(&Thunk::template run<NSTimer>);
    if (!replaceMethod(cls, selector<message>(), implementation)) {
        class_addMethod(cls, selector<message>(), implementation, Thunk::encoding.data());
    }
}

void replaceMakers() {
    Defined<NSTimer>::value = objc_getClass("NSTimer");
    Class timers = Defined<NSTimer>::value;
    Class maker = object_getClass(classObject(timers));
    replace<"scheduledTimerWithTimeInterval:repeats:block:">(
        maker, [](Class, double interval, bool repeats, BlockRef<void(Object)> block) -> Object {
            return started(blockTimer(interval, repeats, block));
        });
    replace<"scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:">(
        maker,
        [](Class, double interval, Object target, SEL action, Object info, bool repeats) -> Object {
            return started(targetTimer(interval, target, action, info, repeats));
        });
    replace<"timerWithTimeInterval:repeats:block:">(
        maker, [](Class, double interval, bool repeats, BlockRef<void(Object)> block) -> Object {
            return blockTimer(interval, repeats, block).autoreleased();
        });
    replace<"timerWithTimeInterval:target:selector:userInfo:repeats:">(
        maker,
        [](Class, double interval, Object target, SEL action, Object info, bool repeats) -> Object {
            return targetTimer(interval, target, action, info, repeats).autoreleased();
        });
    replace<"initWithFireDate:interval:repeats:block:">(
        timers,
        [](NSTimer self, NSDate date, double interval, bool repeats, BlockRef<void(Object)> block)
            -> Object { return initialised(self, date, blockTimer(interval, repeats, block)); });
    replace<"initWithFireDate:interval:target:selector:userInfo:repeats:">(
        timers,
        [](NSTimer self, NSDate date, double interval, Object target, SEL action, Object info,
           bool repeats) -> Object {
            return initialised(self, date, targetTimer(interval, target, action, info, repeats));
        });
}

void (*systemAddTimer)(id, SEL, id, id) = nullptr;

void addTimer(id self, SEL command, id added, id mode) {
    if (!Object(added).isKindOfClass(classOf<ClockTimer>())) {
        return systemAddTimer(self, command, added, mode);
    }
    addToLoop(ClockTimer(added), modesOf(NSString(mode)));
}

// A message that waits; it keeps its receiver and its argument.
struct Delayed {
    Strong<Object> receiver;
    SEL action;
    Strong<Object> argument;
    unsigned modes;
    std::uint64_t ticket;
};

std::vector<std::shared_ptr<Delayed>>& delayed() {
    static auto& waiting = *new std::vector<std::shared_ptr<Delayed>>;
    return waiting;
}

void deliver(const std::shared_ptr<Delayed>& message, double time) {
    message->ticket = Clock::shared().at(time, [message] {
        if (!mayRun(message->modes)) return deliver(message, Clock::shared().now() + Clock::frame);
        std::erase(delayed(), message);
        sendMessage<void>(message->receiver.get(), message->action, message->argument.get());
    });
}

void performLater(id self, SEL action, id argument, double delay, unsigned modes) {
    auto message = std::make_shared<Delayed>(
        Delayed{retained(Object(self)), action, retained(Object(argument)), modes, 0});
    delayed().push_back(message);
    deliver(message, Clock::shared().now() + std::max(delay, 0.0001));  // never inside the call
}

void performAfterDelay(id self, SEL, SEL action, id argument, double delay) {
    performLater(self, action, argument, delay, byDefault);
}

void performInModes(id self, SEL, SEL action, id argument, double delay, id modes) {
    unsigned all = 0;
    for (unsigned long i = 0; i < NSArray(modes).count(); ++i) {
        all |= modesOf(NSArray(modes).at<NSString>(i));
    }
    if (all != 0) performLater(self, action, argument, delay, all);
}

template <class Cancelled>
void cancel(Cancelled isCancelled) {
    std::vector<std::shared_ptr<Delayed>> gone;  // they go after the list has changed
    std::erase_if(delayed(), [&](const std::shared_ptr<Delayed>& message) {
        if (!isCancelled(*message)) return false;
        Clock::shared().withdraw(message->ticket);
        gone.push_back(message);
        return true;
    });
}

void cancelAll(id, SEL, id receiver) {
    cancel([&](const Delayed& d) { return d.receiver == Object(receiver); });
}

void cancelOne(id, SEL, id receiver, SEL action, id argument) {
    auto same = [&](Object met) {
        return met == Object(argument) || (met && met.send<"isEqual:", bool>(Object(argument)));
    };
    cancel([&](const Delayed& d) {
        return d.receiver == Object(receiver) && sel_isEqual(d.action, action) && same(d.argument);
    });
}

void replaceDelays() {
    auto put = [](MethodKind kind, const char* message, auto* function) {
        replaceMethod("NSObject", kind, message, reinterpret_cast<IMP>(function));
    };
    put(MethodKind::instance, "performSelector:withObject:afterDelay:", &performAfterDelay);
    put(MethodKind::instance, "performSelector:withObject:afterDelay:inModes:", &performInModes);
    put(MethodKind::onClass, "cancelPreviousPerformRequestsWithTarget:", &cancelAll);
    put(MethodKind::onClass,
        "cancelPreviousPerformRequestsWithTarget:selector:object:", &cancelOne);
}

}  // namespace

void addTimers() {
    table<ClockTimer, NSTimer, TimerState>()
        .method<"invalidate">([](ClockTimer t) { invalidate(t); })
        .method<"isValid">([](ClockTimer t) -> bool { return !timer(t).invalid; })
        .method<"fire">([](ClockTimer t) { fire(t); })
        .method<"timeInterval">(
            [](ClockTimer t) -> double { return timer(t).repeats ? timer(t).interval : 0; })
        .method<"fireDate">([](ClockTimer t) { return dateOf(timer(t).due); })
        .method<"setFireDate:">([](ClockTimer t, NSDate date) {
            timer(t).due = timeOf(date);
            if (timer(t).modes != 0 && !timer(t).invalid) schedule(retained(t), timer(t).due);
        })
        .property<"tolerance", &TimerState::tolerance>()
        .readonly<"userInfo", &TimerState::userInfo>();
    replaceMakers();
    systemAddTimer = reinterpret_cast<void (*)(id, SEL, id, id)>(replaceMethod(
        "NSRunLoop", MethodKind::instance, "addTimer:forMode:", reinterpret_cast<IMP>(&addTimer)));
    replaceDelays();
}

}  // namespace simulator
