// Ownership, the one rule: handles never own. Strong<T> retains what it is given and releases it in
// the end; Copied<T> keeps a copy (the "copy" properties). adopted() takes over a reference that the
// caller already has (alloc, copy, new), retained() adds one; there is no third way in. What the
// platform hands out autoreleased is used as a handle and stays autoreleased.
#pragma once

#include <utility>

#include "platform/object.hpp"

namespace platform {

template <Handle T>
class [[nodiscard]] Strong : public T {
  public:
    constexpr Strong() = default;
    Strong(const Strong& other) : T(other.get()) { this->template send<"retain", Object>(); }
    Strong(Strong&& other) noexcept : T(other.leak()) {}
    template <std::derived_from<T> U>
        requires(!std::same_as<U, T>)
    Strong(Strong<U>&& other) : T(other.leak()) {}
    Strong& operator=(Strong other) noexcept {
        swap(other);
        return *this;
    }
    ~Strong() { static_cast<T&>(*this).template send<"release">(); }

    // Gives up the reference without releasing it.
    id leak() { return std::exchange(static_cast<T&>(*this), T()).get(); }
    // Hands the reference to the current autorelease pool.
    T autoreleased() {
        T object(leak());
        object.template send<"autorelease", Object>();
        return object;
    }
    void swap(Strong& other) noexcept { std::swap(static_cast<T&>(*this), static_cast<T&>(other)); }

    static Strong adopt(T object) {
        Strong owner;
        static_cast<T&>(owner) = object;
        return owner;
    }
};

template <Handle T>
Strong<T> adopted(T object) {
    return Strong<T>::adopt(object);
}

template <Handle T>
Strong<T> retained(T object) {
    object.template send<"retain", Object>();
    return Strong<T>::adopt(object);
}

// Owns a copy, as "copy" properties do.
template <Handle T>
class Copied : public Strong<T> {
  public:
    constexpr Copied() = default;
    explicit Copied(T original)
        : Strong<T>(Strong<T>::adopt(T(original.template send<"copy", Object>().get()))) {}
};

// A new object by the named initialiser: create<UIView, "initWithFrame:">(frame). Empty when the
// class does not exist or the initialiser gives nothing.
template <Handle T, FixedString initialiser = "init", class... A>
Strong<T> create(A... arguments) {
    Object raw = sendClass<T, "alloc", Object>();
    return Strong<T>::adopt(raw.send<initialiser, T>(arguments...));
}

// Objects autoreleased inside its life go at its end.
class AutoreleasePool {
  public:
    AutoreleasePool() : pool_(makePool()) {}
    ~AutoreleasePool() { pool_.send<"drain">(); }
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

  private:
    static Object makePool() {
        Object cls(classObject(objc_getClass("NSAutoreleasePool")));
        return cls.send<"alloc", Object>().send<"init", Object>();
    }
    Object pool_;
};

}  // namespace platform
