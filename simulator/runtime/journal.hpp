// The journal of the system's operations: how often each ran on a stand-in class, and with what
// arguments it ran last. Stand-ins are defined with Journal as their trace, so that every method is
// recorded by the one wrapper around it. Memory stays bounded: one entry for each pair of class and
// selector. In which order they ran is in the history.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/ownership.hpp"
#include "simulator/runtime/history.hpp"

namespace simulator {

// An argument as it was passed; objects are kept alive while they are the latest.
using Argument = std::variant<bool, long, double, CGPoint, CGSize, CGRect, CGAffineTransform,
                              platform::Strong<platform::Object>, Class, SEL, const void*>;

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
        return Run(note(definer, self, sel_getName(command), {box(arguments)...}));
    }

    // How often objects of the class ran the implementation that the class has, its own or the one
    // that it inherits, since the last clear.
    static long count(std::string_view className, std::string_view selector);
    // The arguments of the latest such run.
    static std::optional<std::vector<Argument>> last(std::string_view className,
                                                     std::string_view selector);
    // The events of the history that are such runs.
    static std::set<History::Number> events(std::string_view className, std::string_view selector);
    static void clear();

  private:
    // Answers how many messages were in flight before this one.
    static std::size_t note(Class definer, id self, const char* selector,
                            std::vector<Argument> arguments);
    static void leave(std::size_t depth);

    template <class T>
    static Argument box(const T& value) {
        if constexpr (std::is_same_v<T, bool>) {
            return value;
        } else if constexpr (std::is_floating_point_v<T>) {
            return static_cast<double>(value);
        } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
            return static_cast<long>(value);
        } else if constexpr (std::is_same_v<T, id>) {
            return platform::retained(platform::Object(value));
        } else if constexpr (std::is_constructible_v<Argument, T>) {
            return value;
        } else if constexpr (requires { journaled(value); }) {  // a record that says how
            return journaled(value);
        } else {
            return static_cast<const void*>(nullptr);
        }
    }
};

}  // namespace simulator
