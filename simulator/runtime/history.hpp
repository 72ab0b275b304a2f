// What happened on the phone, in order: the system's operations that ran, notifications, impacts,
// launches and lines of the log. Each kind of event has a number, so that a long run costs four bytes an
// event; of the latest ones time (seconds of the phone's clock) and arguments are kept as well.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
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

    static History& shared();

    // The number of such an event: the same for the same kind and name.
    Number numberOf(Happening kind, const std::string& name);

    void add(Number event, std::vector<BriefArgument> arguments = {});
    void happened(Happening kind, const std::string& name) { add(numberOf(kind, name)); }

    // The numbers of the events of that kind whose names the test accepts.
    std::set<Number> numbersWhere(Happening kind,
                                  const std::function<bool(const std::string&)>& accepts) const;

    // How many of these came in this order since the last clear, whatever came between.
    std::size_t inOrder(const std::vector<std::set<Number>>& wanted) const;
    long count(const std::set<Number>& events) const;
    // Whether there was more since the last clear than is kept.
    bool forgot() const { return added_ > mostEvents; }
    void clear();

    // The latest so many, oldest first: "0.517 called -[UIView setAlpha:] 0.5".
    std::vector<std::string> latest(std::size_t lines) const;
    // Told of everything of those kinds from here on, until the ticket is given back (0 is none).
    using Ticket = std::uint64_t;
    Ticket watch(std::set<Happening> kinds, Watcher watcher);
    void unwatch(Ticket ticket) { watching_.erase(ticket); }

  private:
    struct Kind {
        Happening happening;
        std::string name;
    };
    struct Latest {
        Number event = 0;
        double time = 0;
        std::vector<BriefArgument> arguments;
    };
    std::string line(const Latest& entry) const;
    void tell(Happening kind, const Latest& entry);

    std::map<std::pair<Happening, std::string>, Number> numbers_;
    std::vector<Kind> kinds_;
    // The events since the last clear, in a ring whose room is taken once: a long run needs no more
    // memory than it has from the start, and pages that are never reached cost nothing.
    std::size_t first() const { return added_ > mostEvents ? added_ - mostEvents : 0; }
    Number at(std::size_t place) const { return order_[place % mostEvents]; }
    std::unique_ptr<Number[]> order_ = std::make_unique_for_overwrite<Number[]>(mostEvents);
    std::size_t added_ = 0;
    std::deque<Latest> latest_;
    struct Watching {
        std::set<Happening> kinds;
        Watcher tell;
    };
    bool telling_ = false;
    Ticket latestTicket_ = 0;
    std::map<Ticket, Watching> watching_;
};

}  // namespace simulator
