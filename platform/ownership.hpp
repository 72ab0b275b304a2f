// Ownership, the one rule: handles never own. Strong<T> retains what it is given and releases it in
// the end; Copied<T> keeps a copy (the "copy" properties). adopted() takes over a reference that the
// caller already has (alloc, copy, new), retained() adds one; there is no third way in. What the
// platform hands out autoreleased is used as a handle and stays autoreleased.
#pragma once

#include <utility>

#include "platform/object.hpp"

namespace platform {

namespace detail {

// What owners do, whatever they own.
VANTORI_SHARED inline id retain(id object) {
    Object(object).send<"retain", Object>();
    return object;
}
VANTORI_SHARED inline void release(id object) { Object(object).send<"release">(); }
// Takes over the new reference and releases the old one, in this order.
VANTORI_SHARED inline void replace(Object& owner, id object) {
    release(std::exchange(owner, Object(object)).get());
}
VANTORI_SHARED inline void replaceRetaining(Object& owner, id object) {
    replace(owner, retain(object));
}
VANTORI_SHARED inline id copyOf(id object) { return Object(object).send<"copy", Object>().get(); }
VANTORI_SHARED inline void replaceCopying(Object& owner, id object) {
    replace(owner, copyOf(object));
}

}  // namespace detail

template <Handle T>
class [[nodiscard]] Strong : public T {
  public:
    constexpr Strong() = default;
    Strong(const Strong& other) : T(detail::retain(other.get())) {}
    Strong(Strong&& other) noexcept : T(other.leak()) {}
    template <std::derived_from<T> U>
        requires(!std::same_as<U, T>)
    Strong(Strong<U>&& other) : T(other.leak()) {}
    Strong& operator=(const Strong& other) noexcept {
        detail::replaceRetaining(*this, other.get());
        return *this;
    }
    Strong& operator=(Strong&& other) noexcept {
        detail::replace(*this, other.leak());
        return *this;
    }
    ~Strong() { detail::release(this->get()); }

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
    return Strong<T>::adopt(T(detail::retain(object.get())));
}

// Owns a copy, as "copy" properties do.
template <Handle T>
class Copied : public Strong<T> {
  public:
    constexpr Copied() = default;
    explicit Copied(T original) : Strong<T>(Strong<T>::adopt(T(detail::copyOf(original.get())))) {}
};

// A new object by the named initialiser: create<UIView, "initWithFrame:">(frame). Empty when the
// class does not exist or the initialiser gives nothing.
template <Handle T, FixedString initialiser = "init", class... A>
VANTORI_FORWARDED inline Strong<T> create(A... arguments) {
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
    VANTORI_SHARED static Object makePool() {
        Object cls(classObject(objc_getClass("NSAutoreleasePool")));
        return cls.send<"alloc", Object>().send<"init", Object>();
    }
    Object pool_;
};

}  // namespace platform
