// The table of a stand-in class, written with lambdas beside their selectors:
//
//     table<UILabel, UIView, LabelState>()
//         .method<"text">([](UILabel label) -> NSString { return stateOf<LabelState>(label).text; })
//
// Encodings come from the lambda's signature; every run is recorded in the journal. Classes and methods
// that this phone has not are left out (see presence.hpp).
#pragma once

#include "simulator/runtime/stand_in.hpp"

namespace simulator {

namespace detail {

template <class Function, class Call>
struct LambdaThunk;
template <class Function, class Owner, class R, class Self, class... A>
struct LambdaThunk<Function, R (Owner::*)(Self, A...) const> {
    static constexpr auto encoding = platform::MethodEncoding<R, A...>::value;
    static constexpr bool onClass = std::is_same_v<Self, Class>;

    template <platform::Handle Definer>
    static platform::WireOf<R> run(id self, SEL command, platform::WireOf<A>... arguments) {
        const auto running =
            Journal::record(platform::Defined<Definer>::value, self, command, arguments...);
        if constexpr (std::is_void_v<R>) {
            Function{}(receiver(self), std::remove_cvref_t<A>(arguments)...);
        } else {
            auto result = Function{}(receiver(self), std::remove_cvref_t<A>(arguments)...);
            return platform::Object::wire(result);
        }
    }

  private:
    static auto receiver(id self) {
        if constexpr (onClass) {
            return reinterpret_cast<Class>(self);
        } else {
            return Self(self);
        }
    }
};

}  // namespace detail

template <platform::Handle T>
class Table {
  public:
    explicit Table(Class cls) : class_(cls) {}

    template <platform::FixedString message, class Function>
    const Table& method(Function, On phones = On::allPhones) const {
        if (class_ && has(T::name.view(), Kind::method, message.view(), phones))
            add<message, Function>(class_);
        return *this;
    }
    template <platform::FixedString message, class Function>
    const Table& classMethod(Function, On phones = On::allPhones) const {
        if (class_ && has(T::name.view(), Kind::classMethod, message.view(), phones))
            add<message, Function>(object_getClass(platform::classObject(class_)));
        return *this;
    }
    template <platform::FixedString message, class Function>
    const Table& realMethod(Function function) const {
        return method<message>(function, On::realPhones);
    }
    template <platform::FixedString message, class Function>
    const Table& realClassMethod(Function function) const {
        return classMethod<message>(function, On::realPhones);
    }
    template <platform::FixedString propertyName, auto member>
    const Table& readonly() const {
        StandIn<T>(class_).template readonly<propertyName, member>();
        return *this;
    }
    template <platform::FixedString propertyName, auto member>
    const Table& property() const {
        StandIn<T>(class_).template property<propertyName, member>();
        return *this;
    }
    // A property whose getter is called isSomething, as boolean ones often are.
    template <platform::FixedString getter, platform::FixedString setter, auto member>
    const Table& flag() const {
        using Access = platform::detail::Accessors<member>;
        StandIn<T>(class_)
            .template method<getter, &Access::get>()
            .template method<setter, &Access::set>();
        return *this;
    }

  private:
    template <platform::FixedString message, class Function>
    static void add(Class cls) {
        using Thunk = detail::LambdaThunk<Function, decltype(&Function::operator())>;
        class_addMethod(cls, platform::selector<message>(),
                        reinterpret_cast<IMP>(&Thunk::template run<T>), Thunk::encoding.data());
    }
    Class class_;
};

template <platform::Handle T, platform::Handle Super, class State = platform::detail::NoState>
Table<T> table(const Variables& variables = {}) {
    standIn<T, Super, State>(variables);
    return Table<T>(platform::Defined<T>::value);
}

// Adds to a class that Foundation already has.
template <platform::Handle T>
Table<T> category() {
    platform::Defined<T>::value = objc_getClass(T::name.data());
    return Table<T>(platform::Defined<T>::value);
}

}  // namespace simulator
