// Handles and messages.
//
// A handle (UIView, VNTSlider, ...) is a value the size of a pointer that names an object and does
// not own it; Strong and Copied own (ownership.hpp). Handles derive from one another as the classes
// do, and their operations are one-line messages. A message to an empty handle yields zero.
// sendMessage and sendSuper hold the only casts of a message send in the project.
#pragma once

#include <atomic>
#include <concepts>
#include <type_traits>

#include "platform/code_size.hpp"
#include "platform/fixed_string.hpp"
#include "platform/geometry.hpp"
#include "platform/runtime.hpp"
#include "platform/selector.hpp"

namespace platform {

class Object;

template <class T>
concept Handle = std::derived_from<T, Object>;

// What travels in a message for a C++ type: an object pointer for a handle, else the value itself.
template <class T>
struct Wire {
    using Type = T;
};
template <Handle T>
struct Wire<T> {
    using Type = id;
};
template <class T>
using WireOf = typename Wire<std::remove_cvref_t<T>>::Type;

#if defined(__APPLE__)

namespace detail {

// Whether the runtime's answer to a message to nothing, zero in every register of a result, is the
// whole result; larger structures are written to memory, which it leaves as it is.
template <class R>
inline constexpr bool isInRegisters = sizeof(R) <= 2 * sizeof(void*);
template <>
inline constexpr bool isInRegisters<void> = true;
template <>
inline constexpr bool isInRegisters<CGRect> = true;  // four numbers are in four

// One function a message: it puts the selector into its register, where callers leave room for it, and
// goes on to the runtime. So a place that sends takes the arguments and a call, and no more.
template <FixedString message, class R, class... A>
VANTORI_SHARED R messageStub(id receiver, SEL, A... arguments) {
    return reinterpret_cast<R (*)(id, SEL, A...)>(objc_msgSend)(receiver, selector<message>(),
                                                                arguments...);
}

}  // namespace detail

template <FixedString message, class R, class... A>
VANTORI_FORWARDED inline R sendMessage(id receiver, A... arguments) {
    if constexpr (!detail::isInRegisters<R>) {
        if (!receiver) return R();
    }
    SEL room;
    asm("" : "=r"(room));  // whatever is there
    return detail::messageStub<message, R, A...>(receiver, room, arguments...);
}

#else

// By a selector that is known only at run time, as the phone sends actions.
template <class R, class... A>
R sendMessage(id receiver, SEL selector, A... arguments) {
    if (!receiver) return R();
    return reinterpret_cast<R (*)(id, SEL, A...)>(objc_msg_lookup(receiver, selector))(
        receiver, selector, arguments...);
}

template <FixedString message, class R, class... A>
R sendMessage(id receiver, A... arguments) {
    return sendMessage<R>(receiver, selector<message>(), arguments...);
}

#endif

// Runs the implementation that the superclass of definer has for the selector, on receiver.
template <class R, class... A>
VANTORI_SHARED R sendSuper(id receiver, Class definer, SEL selector, A... arguments) {
    if (!receiver) return R();
    objc_super target{receiver, class_getSuperclass(definer)};
#if defined(__APPLE__)
    return reinterpret_cast<R (*)(objc_super*, SEL, A...)>(objc_msgSendSuper)(&target, selector,
                                                                              arguments...);
#else
    return reinterpret_cast<R (*)(id, SEL, A...)>(objc_msg_lookup_super(&target, selector))(
        receiver, selector, arguments...);
#endif
}

class Object {
  public:
    static constexpr FixedString name{"NSObject"};

    constexpr Object() = default;
    constexpr explicit Object(id object) : object_(object) {}

    constexpr id get() const { return object_; }
    constexpr explicit operator bool() const { return object_ != nullptr; }
    friend constexpr bool operator==(const Object& a, const Object& b) {
        return a.object_ == b.object_;
    }

    // Sends the message; the argument types decide how they travel, so name numbers by their
    // platform type (double for CGFloat, long for NSInteger, float for float).
    template <FixedString message, class R = void, class... A>
    VANTORI_FORWARDED R send(A... arguments) const {
        if constexpr (std::is_void_v<R>) {
            sendMessage<message, void>(object_, wire(arguments)...);
        } else {
            return R(sendMessage<message, WireOf<R>>(object_, wire(arguments)...));
        }
    }

    bool isKindOfClass(Class cls) const {
        if (!object_) return false;
        for (Class c = object_getClass(object_); c; c = class_getSuperclass(c)) {
            if (c == cls) return cls != nullptr;
        }
        return false;
    }
    bool respondsTo(SEL message) const {
        return object_ && class_getInstanceMethod(object_getClass(object_), message);
    }

    // As send, for methods that some of the supported systems lack: where the object does not answer the
    // message, nothing is sent and the result is zero. An unknown message would end SpringBoard.
    template <FixedString message, class R = void, class... A>
    R sendIfAnswered(A... arguments) const {
        if (!respondsTo(selector<message>())) return R();
        return send<message, R>(arguments...);
    }

    template <class T>
    static auto wire(const T& value) {
        if constexpr (Handle<T>) {
            return value.get();
        } else {
            return value;
        }
    }

  private:
    id object_ = nullptr;
};

// The same object under another type; nothing is checked.
template <Handle T>
constexpr T as(const Object& object) {
    return T(object.get());
}

namespace detail {

VANTORI_SHARED inline Class lookUpClass(std::atomic<Class>& cached, const char* name) {
    Class found = cached.load(std::memory_order_relaxed);
    if (!found) {
        found = objc_getClass(name);
        cached.store(found, std::memory_order_relaxed);
    }
    return found;
}

}  // namespace detail

// The class that a handle type names; nil while it does not exist (looked up again each time until
// it does, since frameworks load late).
template <Handle T>
VANTORI_SHARED Class classOf() {
    static std::atomic<Class> cached{nullptr};
    return detail::lookUpClass(cached, T::name.data());
}

inline id classObject(Class cls) { return reinterpret_cast<id>(cls); }

// A message to a class; zero when the class does not exist.
template <Handle T, FixedString message, class R = void, class... A>
VANTORI_FORWARDED inline R sendClass(A... arguments) {
    return Object(classObject(classOf<T>())).template send<message, R>(arguments...);
}

}  // namespace platform
