#include "simulator/runtime/history.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <utility>

#include "simulator/runtime/black_box.hpp"
#include "simulator/runtime/clock.hpp"

namespace simulator {

namespace {

constexpr std::array<const char*, 7> words{
    "called", "posted", "darwin-posted", "haptic", "launched", "launched-suspended", "logged"};

const char* wordOf(Happening kind) { return words[static_cast<std::size_t>(kind)]; }

std::string decimal(double value, int decimals) {
    std::array<char, 400> buffer{};  // room for the largest double
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    std::string text = buffer.data();
    if (decimals > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string braced(std::initializer_list<double> numbers) {
    std::string text;
    for (const double number : numbers) text += (text.empty() ? "" : ", ") + decimal(number, 3);
    return "{" + text + "}";
}

struct Writer {
    std::string operator()(std::monostate) const { return "nil"; }
    std::string operator()(bool yes) const { return yes ? "YES" : "NO"; }
    std::string operator()(long number) const { return std::to_string(number); }
    std::string operator()(double number) const { return decimal(number, 3); }
    std::string operator()(CGPoint p) const { return braced({p.x, p.y}); }
    std::string operator()(CGSize s) const { return braced({s.width, s.height}); }
    std::string operator()(const CGRect& r) const {
        return braced({r.origin.x, r.origin.y, r.size.width, r.size.height});
    }
    std::string operator()(const CGAffineTransform& t) const {
        return braced({t.a, t.b, t.c, t.d, t.tx, t.ty});
    }
    std::string operator()(Class cls) const {
        return std::string("<") + (cls ? class_getName(cls) : "nil") + ">";
    }
    std::string operator()(SEL selector) const {
        return std::string("@selector(") + (selector ? sel_getName(selector) : "") + ")";
    }
};

}  // namespace

struct History::Events {
    struct Kind {
        Happening happening;
        std::string name;
    };
    struct Latest {
        Number event = 0;
        double time = 0;
        std::array<BriefArgument, mostArguments> arguments;
        std::size_t argumentCount = 0;
    };

    std::map<std::pair<Happening, std::string>, Number> numbers;
    std::vector<Kind> kinds;
    // The events since the last clear, in a ring whose room is taken once: a long run needs no more
    // memory than it has from the start, and pages that are never reached cost nothing.
    std::unique_ptr<Number[]> order = std::make_unique_for_overwrite<Number[]>(mostEvents);
    std::size_t added = 0;
    // The latest of those ever added, in a ring of its own.
    std::array<Latest, mostLatest> latest;
    std::size_t everAdded = 0;
    struct Watching {
        std::set<Happening> kinds;
        Watcher tell;
    };
    bool telling = false;
    Ticket latestTicket = 0;
    std::map<Ticket, Watching> watching;

    std::size_t first() const { return added > mostEvents ? added - mostEvents : 0; }
    Number at(std::size_t place) const { return order[place % mostEvents]; }

    std::string line(const Latest& entry) const {
        const Kind& kind = kinds[entry.event];
        std::string text = decimal(entry.time, 3) + " " + wordOf(kind.happening) + " " + kind.name;
        for (const BriefArgument& argument : std::span(entry.arguments).first(entry.argumentCount))
            text += " " + std::visit(Writer{}, argument);
        return text;
    }

    void tell(Happening kind, const Latest& entry) {
        telling = true;  // what telling it makes happen is not told
        std::string text;
        for (const auto& [ticket, each] : watching) {
            if (!each.kinds.contains(kind)) continue;
            if (text.empty()) text = line(entry);
            each.tell(kind, text);
        }
        telling = false;
    }
};

History::History() : events_(std::make_unique<Events>()) {}

History& History::shared() {
    // Never destroyed: objects may still be recorded while the process ends.
    static auto& history = *new History;
    return history;
}

History::Number History::numberOf(Happening kind, const std::string& name) {
    const auto [place, fresh] =
        events_->numbers.try_emplace({kind, name}, static_cast<Number>(events_->kinds.size()));
    if (fresh) events_->kinds.push_back({kind, name});
    return place->second;
}

void History::add(Number event, std::span<const BriefArgument> arguments) {
    Events& all = *events_;
    all.order[all.added++ % mostEvents] = event;
    Events::Latest& entry = all.latest[all.everAdded++ % mostLatest];
    entry.event = event;
    entry.time = Clock::shared().now();
    entry.argumentCount = std::min(arguments.size(), mostArguments);
    std::ranges::copy(arguments.first(entry.argumentCount), entry.arguments.begin());
    const Events::Kind& kind = all.kinds[event];
    if (BlackBox* box = BlackBox::ofThisProcess())
        box->note(entry.time, wordOf(kind.happening), kind.name);
    if (!all.telling && !all.watching.empty()) all.tell(kind.happening, entry);
}

History::Ticket History::watch(std::set<Happening> kinds, Watcher watcher) {
    events_->watching.emplace(++events_->latestTicket,
                              Events::Watching{std::move(kinds), std::move(watcher)});
    return events_->latestTicket;
}

void History::unwatch(Ticket ticket) { events_->watching.erase(ticket); }

std::set<History::Number> History::numbersWhere(
    Happening kind, const std::function<bool(const std::string&)>& accepts) const {
    std::set<Number> found;
    const auto& kinds = events_->kinds;
    for (Number number = 0; number < kinds.size(); ++number) {
        if (kinds[number].happening == kind && accepts(kinds[number].name)) found.insert(number);
    }
    return found;
}

std::size_t History::inOrder(const std::vector<std::set<Number>>& wanted) const {
    std::size_t met = 0;
    for (std::size_t place = events_->first(); place < events_->added && met < wanted.size();
         ++place) {
        if (wanted[met].contains(events_->at(place))) ++met;
    }
    return met;
}

long History::count(const std::set<Number>& events) const {
    long found = 0;
    for (std::size_t place = events_->first(); place < events_->added; ++place)
        if (events.contains(events_->at(place))) ++found;
    return found;
}

bool History::forgot() const { return events_->added > mostEvents; }

void History::clear() { events_->added = 0; }

std::vector<std::string> History::latest(std::size_t lines) const {
    const Events& all = *events_;
    std::vector<std::string> result;
    const std::size_t kept = std::min({all.everAdded, mostLatest, lines});
    for (std::size_t i = all.everAdded - kept; i < all.everAdded; ++i)
        result.push_back(all.line(all.latest[i % mostLatest]));
    return result;
}

}  // namespace simulator
