// What happened on the phone, in order: the system's operations that ran, notifications, impacts,
// launches and lines of the log. Each kind of event has a number, so that a long run costs four bytes an
// event; of the latest ones time (seconds of the phone's clock) and arguments are kept as well.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/geometry.hpp"
#include "platform/runtime.hpp"

namespace simulator {

enum class Happening : unsigned char {
    called,
    posted,
    darwinPosted,
    haptic,
    launched,
    launchedSuspended,
    logged
};

// An argument for reading later: of an object, its class.
using BriefArgument = std::variant<std::monostate, bool, long, double, CGPoint, CGSize, CGRect,
                                   CGAffineTransform, Class, SEL>;

class History {
  public:
    using Number = std::uint32_t;
    using Watcher = std::function<void(Happening, const std::string& line)>;
    static constexpr std::size_t mostEvents = std::size_t{1} << 24;
    static constexpr std::size_t mostLatest = 256;
    static constexpr std::size_t mostArguments = 4;

    static History& shared();

    // The number of such an event: the same for the same kind and name.
    Number numberOf(Happening kind, const std::string& name);

    // Of the arguments the first few are kept.
    void add(Number event, std::span<const BriefArgument> arguments = {});
    void happened(Happening kind, const std::string& name) { add(numberOf(kind, name)); }

    // The numbers of the events of that kind whose names the test accepts.
    std::set<Number> numbersWhere(Happening kind,
                                  const std::function<bool(const std::string&)>& accepts) const;

    // How many of these came in this order since the last clear, whatever came between.
    std::size_t inOrder(const std::vector<std::set<Number>>& wanted) const;
    long count(const std::set<Number>& events) const;
    // Whether there was more since the last clear than is kept.
    bool forgot() const;
    void clear();

    // The latest so many, oldest first: "0.517 called -[UIView setAlpha:] 0.5".
    std::vector<std::string> latest(std::size_t lines) const;
    // Told of everything of those kinds from here on, until the ticket is given back (0 is none).
    using Ticket = std::uint64_t;
    Ticket watch(std::set<Happening> kinds, Watcher watcher);
    void unwatch(Ticket ticket);

  private:
    struct Events;
    History();
    std::unique_ptr<Events> events_;  // apart: many include this
};

}  // namespace simulator
