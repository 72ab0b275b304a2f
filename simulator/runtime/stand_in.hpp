// Defines a class of the simulated phone: like platform::define, but every method is recorded in
// the journal, nothing is made when this phone has not the class, and a method that it has not is left
// out. Later and earlier systems' names are declared beside the others, for real phones only:
//
//     standIn<SBMediaController, Object, State>(Variables{"_info"})
//         .method<"changeTrack:eventSource:", &changeTrack>()
//         .realMethod<"changeTrack:", &changeTrackOnly>()
//
// What is on which phone is decided in presence.hpp alone. A variable answers class_getInstanceVariable;
// its value is read by key, through a method of its name.
#pragma once

#include <initializer_list>
#include <vector>

#include "platform/definition.hpp"
#include "simulator/runtime/journal.hpp"
#include "simulator/runtime/presence.hpp"

namespace simulator {

template <platform::Handle T, class State = void>
class StandIn {
  public:
    explicit StandIn(Class cls) : definition_(cls) {}
    explicit StandIn(platform::Definition<T, State, Journal> definition)
        : definition_(definition) {}

    template <platform::FixedString message, auto fn>
    const StandIn& method(On phones = On::allPhones) const {
        if (answers<message>(Kind::method, phones)) definition_.template method<message, fn>();
        return *this;
    }
    template <platform::FixedString message, auto fn>
    const StandIn& classMethod(On phones = On::allPhones) const {
        if (answers<message>(Kind::classMethod, phones))
            definition_.template classMethod<message, fn>();
        return *this;
    }
    template <platform::FixedString message, auto fn>
    const StandIn& realMethod() const {
        return method<message, fn>(On::realPhones);
    }
    template <platform::FixedString message, auto fn>
    const StandIn& realClassMethod() const {
        return classMethod<message, fn>(On::realPhones);
    }
    template <platform::FixedString propertyName, auto member>
    const StandIn& readonly(On phones = On::allPhones) const {
        return method<propertyName, &platform::detail::Accessors<member>::get>(phones);
    }
    template <platform::FixedString propertyName, auto member>
    const StandIn& property(On phones = On::allPhones) const {
        return readonly<propertyName, member>(phones)
            .template method<platform::setterName<propertyName>(),
                             &platform::detail::Accessors<member>::set>(phones);
    }

  private:
    template <platform::FixedString message>
    static bool answers(Kind kind, On phones) {
        return has(T::name.view(), kind, message.view(), phones);
    }
    platform::Definition<T, State, Journal> definition_;
};

// Instance variables that a class has under the system's own names.
class Variables {
  public:
    Variables(std::initializer_list<const char*> names, On phones = On::allPhones) {
        for (const char* name : names) all_.push_back({name, phones});
    }
    const Variables& andReal(std::initializer_list<const char*> names) {
        for (const char* name : names) all_.push_back({name, On::realPhones});
        return *this;
    }
    void addTo(Class cls) const {
        for (const auto& [name, phones] : all_) {
            if (has(class_getName(cls), Kind::variable, name, phones))
                class_addIvar(cls, name, sizeof(id), platform::detail::alignmentPower(sizeof(id)),
                              "@");
        }
    }

  private:
    std::vector<std::pair<const char*, On>> all_;
};

// Keeps the object in a variable of the system's name for ever. Nothing where this phone has no such
// variable.
inline void setVariable(platform::Object owner, const char* name, platform::Object value) {
    Ivar variable = owner ? class_getInstanceVariable(object_getClass(owner.get()), name) : nullptr;
    if (!variable) return;
    auto* place = reinterpret_cast<char*>(owner.get()) + ivar_getOffset(variable);
    *reinterpret_cast<id*>(place) = platform::retained(value).leak();
}

template <platform::Handle T, platform::Handle Super, class State = platform::detail::NoState>
StandIn<T, State> standIn(const Variables& variables = {}, On phones = On::allPhones) {
    if (!hasClass(T::name.view(), phones)) return StandIn<T, State>(nullptr);
    return StandIn<T, State>(
        platform::define<T, Super, State, Journal>([&](Class cls) { variables.addTo(cls); }));
}

// A class that only real phones have.
template <platform::Handle T, platform::Handle Super, class State = platform::detail::NoState>
StandIn<T, State> realStandIn(const Variables& variables = {}) {
    return standIn<T, Super, State>(variables, On::realPhones);
}

}  // namespace simulator
