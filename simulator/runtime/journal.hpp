// The journal of the system's operations: how often each ran on a stand-in class, and with what
// arguments it ran last. Stand-ins are defined with Journal as their trace, so that every method is
// recorded by the one wrapper around it. Memory stays bounded: one entry for each pair of class and
// selector. In which order they ran is in the history.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/ownership.hpp"

namespace simulator {

// An argument as it was passed; objects are kept alive while they are the latest.
using Argument = std::variant<bool, long, double, CGPoint, CGSize, CGRect, CGAffineTransform,
                              platform::Strong<platform::Object>, Class, SEL, const void*>;

// An argument on its way into the journal: as small as can be, since every method of a stand-in has one
// for each that it takes.
class Passed {
  public:
    Passed(std::same_as<bool> auto value) : kind_(Kind::boolean), boolean_(value) {}
    template <class T>
        requires((std::is_integral_v<T> && !std::is_same_v<T, bool>) || std::is_enum_v<T>)
    Passed(T value) : kind_(Kind::integer), integer_(static_cast<long>(value)) {}
    Passed(double value) : kind_(Kind::real), real_(value) {}
    Passed(id value) : kind_(Kind::object), pointer_(value) {}
    Passed(Class value) : kind_(Kind::cls), pointer_(value) {}
    Passed(SEL value) : kind_(Kind::selector), pointer_(value) {}
    Passed(const void* value) : kind_(Kind::other), pointer_(value) {}
    Passed(const CGPoint& value) : kind_(Kind::point), pointer_(&value) {}
    Passed(const CGSize& value) : kind_(Kind::size), pointer_(&value) {}
    Passed(const CGAffineTransform& value) : kind_(Kind::transform), pointer_(&value) {}
    Passed(const CGRect& value) : kind_(Kind::rect), pointer_(&value) {}

    Argument kept() const;

  private:
    enum class Kind {
        boolean,
        integer,
        real,
        point,
        size,
        rect,
        transform,
        object,
        cls,
        selector,
        other
    };
    Kind kind_;
    union {
        bool boolean_;
        long integer_;
        double real_;
        const void* pointer_;  // a structure is where it was passed
    };
};

class Journal {
  public:
    // A run under way: the messages in flight are known by these.
    class Run {
      public:
        explicit Run(std::size_t depth) : depth_(depth) {}
        ~Run() { leave(depth_); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

      private:
        std::size_t depth_;
    };

    // The trace of platform::define.
    template <class... A>
    static Run record(Class definer, id self, SEL command, const A&... arguments) {
        return Run(note(definer, self, sel_getName(command), {passed(arguments)...}));
    }

    // How often objects of the class ran the implementation that the class has, its own or the one
    // that it inherits, since the last clear.
    static long count(std::string_view className, std::string_view selector);
    // The arguments of the latest such run.
    static std::optional<std::vector<Argument>> last(std::string_view className,
                                                     std::string_view selector);
    // The events of the history (see history.hpp) that are such runs.
    static std::set<std::uint32_t> events(std::string_view className, std::string_view selector);
    static void clear();

  private:
    // Answers how many messages were in flight before this one.
    static std::size_t note(Class definer, id self, const char* selector,
                            std::initializer_list<Passed> arguments);
    static void leave(std::size_t depth);

    template <class T>
    static decltype(auto) passed(const T& value) {
        if constexpr (std::is_constructible_v<Passed, const T&>) {
            return (value);
        } else if constexpr (requires { journaled(value); }) {  // a record that says how
            return journaled(value);
        } else {
            return static_cast<const void*>(nullptr);
        }
    }
};

}  // namespace simulator
