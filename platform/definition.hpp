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
VANTORI_FORWARDED inline R super(const Object& self, A... arguments) {
    Class definer = Defined<Definer>::value;
    if constexpr (std::is_void_v<R>) {
        sendSuper<void>(self.get(), definer, selector<message>(), Object::wire(arguments)...);
    } else {
        return R(sendSuper<WireOf<R>>(self.get(), definer, selector<message>(),
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

// The implementation that the runtime calls for a plain function fn(self, arguments...). Message and
// encoding are a part of its name, so that the audit of the device build can tell what answers what.
template <class Definer, class Trace, FixedString message, FixedString encoding, auto fn>
struct Thunk;
template <class Definer, class Trace, FixedString message, FixedString encoding, class R,
          class Self, class... A, R (*fn)(Self, A...)>
struct Thunk<Definer, Trace, message, encoding, fn> {
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
    static void write(Strong<T>& member, T value) { detail::replaceRetaining(member, value.get()); }
};
template <Handle T>
struct Storage<Copied<T>> {
    using Value = T;
    static void write(Copied<T>& member, T value) { detail::replaceCopying(member, value.get()); }
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

VANTORI_SHARED inline void addTo(Class cls, SEL message, IMP implementation, const char* types) {
    if (cls) class_addMethod(cls, message, implementation, types);
}

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
        constexpr auto encoding = encodingOf<fn>;
        using Implementation = detail::Thunk<T, Trace, message, encoding, fn>;
        detail::addTo(class_, selector<message>(), reinterpret_cast<IMP>(&Implementation::run),
                      sharedText<encoding>());
        return *this;
    }

    template <FixedString message, auto fn>
    const Definition& classMethod() const {
        constexpr auto encoding = encodingOf<fn>;
        using Implementation = detail::Thunk<T, Trace, message, encoding, fn>;
        detail::addTo(object_getClass(classObject(class_)), selector<message>(),
                      reinterpret_cast<IMP>(&Implementation::runOnClass), sharedText<encoding>());
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
    Class class_;
};

// Adds a method to a class of the system, with the encoding that the function's signature gives. A
// missing class, and one that has the method, stay as they are.
template <FixedString message, auto fn>
void addMethod(Class cls) {
    constexpr auto encoding = encodingOf<fn>;
    using Implementation = detail::Thunk<Object, NoTrace, message, encoding, fn>;
    detail::addTo(cls, selector<message>(), reinterpret_cast<IMP>(&Implementation::run),
                  sharedText<encoding>());
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

// What making a class needs to know of it.
struct ClassInTheMaking {
    const char* name;
    const char* variable;
    std::size_t size;  // of the state in bytes; 0 for none
    unsigned char alignment;
    void (*deallocate)(id, SEL);  // null where nothing is to be destroyed
};

// Up to the registration, when variables can be added. Nil when there is nothing to make.
VANTORI_SHARED inline Class allocateClass(const char* parentName, const ClassInTheMaking& made) {
    Class parent = objc_getClass(parentName);
    if (!parent || objc_getClass(made.name)) return nullptr;
    Class cls = objc_allocateClassPair(parent, made.name, 0);
    if (!cls || !made.size) return cls;
    class_addIvar(cls, made.variable, made.size, made.alignment, "{?=}");
    if (made.deallocate)
        class_addMethod(cls, selector<"dealloc">(), reinterpret_cast<IMP>(made.deallocate), "v@:");
    return cls;
}

// The offset of the state is asked for after the registration (GCC's runtime answers 0 before it).
VANTORI_SHARED inline void registerClass(Class cls, const char* variable, Class& defined,
                                         std::ptrdiff_t* offset) {
    objc_registerClassPair(cls);
    defined = cls;
    if (offset) *offset = ivar_getOffset(class_getInstanceVariable(cls, variable));
}

}  // namespace detail

// Makes and registers the class T::name below Super. If a class of that name exists or Super does
// not, nothing is made and the table has no effect. Variables under names of their own can be added
// only before the registration: addVariables(class) is called then.
template <Handle T, Handle Super, class State = detail::NoState, class Trace = NoTrace,
          class AddVariables = detail::NoVariables>
Definition<T, State, Trace> define(AddVariables addVariables = {}) {
    if (StateSlot<State>::offset != 0) return Definition<T, State, Trace>(nullptr);
    constexpr bool stateful = !std::is_same_v<State, detail::NoState>;
    // Named after the class: the runtime refuses a variable whose name a superclass has too.
    static constexpr auto variable = FixedString{"_state"} + T::name;
    detail::ClassInTheMaking made{.name = T::name.data(),
                                  .variable = variable.data(),
                                  .size = stateful ? sizeof(State) : 0,
                                  .alignment = detail::alignmentPower(alignof(State)),
                                  .deallocate = nullptr};
    if constexpr (stateful && !std::is_trivially_destructible_v<State>)
        made.deallocate = &detail::deallocate<T, State>;
    Class cls = detail::allocateClass(Super::name.data(), made);
    if (!cls) return Definition<T, State, Trace>(nullptr);
    addVariables(cls);
    detail::registerClass(cls, variable.data(), Defined<T>::value,
                          stateful ? &StateSlot<State>::offset : nullptr);
    return Definition<T, State, Trace>(cls);
}

}  // namespace platform
