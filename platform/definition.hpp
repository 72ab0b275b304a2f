// Defining classes: a name, a superclass, a state structure, and a table of selectors with the plain
// functions that answer them. Type encodings are derived from the functions, so they cannot be
// wrong. The table stands at the end of the source:
//
//     void registerHostWindow() {
//         define<VNTSBHostWindow, UIWindow>()
//             .method<"hitTest:withEvent:", &hitTest>()
//             .property<"updateVC", &State::updateController>();
//     }
//
// The state lives in one instance variable. It must be valid when all its bytes are zero (no
// constructor runs) and is destroyed when the object is deallocated.
#pragma once

#include "platform/block.hpp"
#include "platform/encoding.hpp"
#include "platform/ownership.hpp"

namespace platform {

// Where the state of a defined class lies in its objects, in bytes; 0 before the class is defined, since
// the class pointer lies there. A state serves one class only, for there is one place for it: a second
// definition with it makes nothing.
template <class State>
struct StateSlot {
    static inline std::ptrdiff_t offset = 0;
};

// The state of an object whose class was defined with that state. The object must not be empty.
template <class State>
State& stateOf(const Object& object) {
    return *reinterpret_cast<State*>(reinterpret_cast<char*>(object.get()) +
                                     StateSlot<State>::offset);
}

// The class that a definition registered, for messages to super.
template <Handle T>
struct Defined {
    static inline Class value = nullptr;
};

// Runs the implementation of the superclass of the definition (not of the object).
template <Handle Definer, FixedString message, class R = void, class... A>
R super(const Object& self, A... arguments) {
    Class parent = class_getSuperclass(Defined<Definer>::value);
    if constexpr (std::is_void_v<R>) {
        sendSuper<void>(self.get(), parent, selector<message>(), Object::wire(arguments)...);
    } else {
        return R(sendSuper<WireOf<R>>(self.get(), parent, selector<message>(),
                                      Object::wire(arguments)...));
    }
}

// Told of every run of a method that is defined with it: what record() answers lives as long as the run.
// This one is deaf and costs nothing.
struct NoTrace {
    struct Run {};
    template <class... A>
    static Run record(Class, id, SEL, const A&...) {
        return {};
    }
};

namespace detail {

template <class T>
auto toWire(T&& value) {
    return Object::wire(value);
}

// The implementation that the runtime calls for a plain function fn(self, arguments...). The message is a
// part of its name, so that the audit of the device build can tell what answers it, with which encoding.
template <class Definer, class Trace, FixedString message, auto fn>
struct Thunk;
template <class Definer, class Trace, FixedString message, class R, class Self, class... A,
          R (*fn)(Self, A...)>
struct Thunk<Definer, Trace, message, fn> {
    static constexpr auto encoding = MethodEncoding<R, A...>::value;
    static WireOf<R> run(id self, SEL command, WireOf<A>... arguments) {
        [[maybe_unused]] const auto running =
            Trace::record(Defined<Definer>::value, self, command, arguments...);
        if constexpr (std::is_void_v<R>) {
            fn(Self(self), std::remove_cvref_t<A>(arguments)...);
        } else {
            return toWire(fn(Self(self), std::remove_cvref_t<A>(arguments)...));
        }
    }
    // For a class method the receiver is the class.
    static WireOf<R> runOnClass(id self, SEL command, WireOf<A>... arguments) {
        [[maybe_unused]] const auto running =
            Trace::record(Defined<Definer>::value, self, command, arguments...);
        if constexpr (std::is_void_v<R>) {
            fn(reinterpret_cast<Class>(self), std::remove_cvref_t<A>(arguments)...);
        } else {
            return toWire(fn(reinterpret_cast<Class>(self), std::remove_cvref_t<A>(arguments)...));
        }
    }
};

// How a member of the state is read and written as a property.
template <class Member>
struct Storage {  // plain values and handles that are not owned
    using Value = Member;
    static void write(Member& member, Value value) { member = value; }
};
template <Handle T>
struct Storage<Strong<T>> {
    using Value = T;
    static void write(Strong<T>& member, T value) { member = retained(value); }
};
template <Handle T>
struct Storage<Copied<T>> {
    using Value = T;
    static void write(Copied<T>& member, T value) { member = Copied<T>(value); }
};

template <auto member>
struct Accessors;
template <class State, class Member, Member State::* member>
struct Accessors<member> {
    using Value = typename Storage<Member>::Value;
    static Value get(Object self) { return stateOf<State>(self).*member; }
    static void set(Object self, Value value) {
        Storage<Member>::write(stateOf<State>(self).*member, value);
    }
};

struct NoState {};
struct NoVariables {
    void operator()(Class) const {}
};

}  // namespace detail

// A class in the making; it is registered by the constructor's caller through define(), methods may
// be added at any time after.
template <Handle T, class State, class Trace>
class Definition {
  public:
    explicit Definition(Class cls) : class_(cls) {}

    template <FixedString message, auto fn>
    const Definition& method() const {
        using Implementation = detail::Thunk<T, Trace, message, fn>;
        add(class_, selector<message>(), reinterpret_cast<IMP>(&Implementation::run),
            Implementation::encoding.data());
        return *this;
    }

    template <FixedString message, auto fn>
    const Definition& classMethod() const {
        using Implementation = detail::Thunk<T, Trace, message, fn>;
        add(object_getClass(classObject(class_)), selector<message>(),
            reinterpret_cast<IMP>(&Implementation::runOnClass), Implementation::encoding.data());
        return *this;
    }

    // A getter and a setter, reachable by selector and by key.
    template <FixedString propertyName, auto member>
    const Definition& property() const {
        return readonly<propertyName, member>()
            .template method<setterName<propertyName>(), &detail::Accessors<member>::set>();
    }
    template <FixedString propertyName, auto member>
    const Definition& readonly() const {
        return method<propertyName, &detail::Accessors<member>::get>();
    }

  private:
    static void add(Class cls, SEL message, IMP implementation, const char* types) {
        if (cls) class_addMethod(cls, message, implementation, types);
    }
    Class class_;
};

// Adds a method to a class of the system, with the encoding that the function's signature gives. A
// missing class, and one that has the method, stay as they are.
template <FixedString message, auto fn>
void addMethod(Class cls) {
    using Implementation = detail::Thunk<Object, NoTrace, message, fn>;
    if (!cls) return;
    class_addMethod(cls, selector<message>(), reinterpret_cast<IMP>(&Implementation::run),
                    Implementation::encoding.data());
}

namespace detail {

template <Handle T, class State>
void deallocate(id self, SEL) {
    stateOf<State>(Object(self)).~State();
    super<T, "dealloc">(Object(self));
}

// log2 of an alignment in bytes, as class_addIvar takes it.
constexpr unsigned char alignmentPower(std::size_t bytes) {
    unsigned char power = 0;
    while ((std::size_t{1} << power) < bytes) ++power;
    return power;
}

}  // namespace detail

// Makes and registers the class T::name below Super. The offset of the state is asked for after the
// registration (GCC's runtime answers 0 before it). If a class of that name exists or Super does
// not, nothing is made and the table has no effect. Variables under names of their own can be added
// only before the registration: addVariables(class) is called then.
template <Handle T, Handle Super, class State = detail::NoState, class Trace = NoTrace,
          class AddVariables = detail::NoVariables>
Definition<T, State, Trace> define(AddVariables addVariables = {}) {
    Class parent = objc_getClass(Super::name.data());
    if (!parent || objc_getClass(T::name.data())) return Definition<T, State, Trace>(nullptr);
    if (StateSlot<State>::offset != 0) return Definition<T, State, Trace>(nullptr);
    Class cls = objc_allocateClassPair(parent, T::name.data(), 0);
    if (!cls) return Definition<T, State, Trace>(nullptr);
    constexpr bool stateful = !std::is_same_v<State, detail::NoState>;
    // Named after the class: the runtime refuses a variable whose name a superclass has too.
    static constexpr auto variable = FixedString{"_state"} + T::name;
    if constexpr (stateful) {
        class_addIvar(cls, variable.data(), sizeof(State), detail::alignmentPower(alignof(State)),
                      "{?=}");
        if constexpr (!std::is_trivially_destructible_v<State>) {
            class_addMethod(cls, selector<"dealloc">(),
                            reinterpret_cast<IMP>(&detail::deallocate<T, State>), "v@:");
        }
    }
    addVariables(cls);
    objc_registerClassPair(cls);
    Defined<T>::value = cls;
    if constexpr (stateful) {
        StateSlot<State>::offset = ivar_getOffset(class_getInstanceVariable(cls, variable.data()));
    }
    return Definition<T, State, Trace>(cls);
}

}  // namespace platform
