// Hooks: a row is a class, a selector and a replacement. The replacement gets the system's
// implementation, bound to the receiver, as its first argument:
//
//     void lockUI(System<void(int, Object)> system, Object self, int source, Object options) {
//         system(source, options);
//         ...
//     }
//     constexpr HookRow row = hook<"SBLockScreenManager", "lockUIFromSource:withOptions:", &lockUI>();
//
// Rows count their calls and remember what installing them met, for the hook report.
#pragma once

#include "platform/encoding.hpp"

namespace platform {

// The system's implementation of the hooked method. Yields zero when there is none.
template <class Signature>
class System;
template <class R, class... A>
class System<R(A...)> {
  public:
    System(IMP implementation, id self, SEL command)
        : implementation_(implementation), self_(self), command_(command) {}
    R operator()(A... arguments) const {
        if (!implementation_) return R();
        auto call = reinterpret_cast<WireOf<R> (*)(id, SEL, WireOf<A>...)>(implementation_);
        if constexpr (std::is_void_v<R>) {
            call(self_, command_, Object::wire(arguments)...);
        } else {
            return R(call(self_, command_, Object::wire(arguments)...));
        }
    }

  private:
    IMP implementation_;
    id self_;
    SEL command_;
};

// What is known of a row after it was installed.
struct HookRecord {
    IMP saved = nullptr;  // the system's implementation; stays empty when nothing was there
    unsigned long calls = 0;
    bool installed = false;  // handed to the injection framework
    bool classFound = false;
    bool methodFound = false;
    bool inherited = false;
    const char* encodingMet = nullptr;  // of the system's method; empty when it was not found
};

struct HookRow {
    const char* className;
    const char* selectorName;
    SEL (*selector)();
    IMP replacement;
    const char* encoding;  // expected, without frame offsets
    HookRecord* record;
};

namespace detail {

template <FixedString className, FixedString message>
struct HookSlot {
    static inline HookRecord record;
};

template <class Function>
struct EncodingOfHook;
template <class R, class Self, class... A>
struct EncodingOfHook<R (*)(System<R(A...)>, Self, A...)> : MethodEncoding<R, A...> {};

// The row is a part of its name, so that the audit of the device build can tell what is hooked.
template <FixedString className, FixedString message, FixedString encoding, auto fn>
struct HookThunk;
template <FixedString className, FixedString message, FixedString encoding, class R, class Self,
          class... A, R (*fn)(System<R(A...)>, Self, A...)>
struct HookThunk<className, message, encoding, fn> {
    static WireOf<R> run(id self, SEL command, WireOf<A>... arguments) {
        HookRecord& record = HookSlot<className, message>::record;
        ++record.calls;
        System<R(A...)> system(record.saved, self, command);
        if constexpr (std::is_void_v<R>) {
            fn(system, Self(self), A(arguments)...);
        } else {
            return Object::wire(fn(system, Self(self), A(arguments)...));
        }
    }
};

}  // namespace detail

template <FixedString className, FixedString message, auto fn>
HookRow hook() {
    constexpr auto encoding = detail::EncodingOfHook<decltype(fn)>::value;
    using Thunk = detail::HookThunk<className, message, encoding, fn>;
    return {className.data(),       message.data(),
            &selector<message>,     reinterpret_cast<IMP>(&Thunk::run),
            sharedText<encoding>(), &detail::HookSlot<className, message>::record};
}

// Hands the row to the injection framework. A missing class is passed on as nothing.
void install(const HookRow& row);

}  // namespace platform
