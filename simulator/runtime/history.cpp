#include "simulator/runtime/history.hpp"

#include <array>
#include <cstdio>

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

History& History::shared() {
    // Never destroyed: objects may still be recorded while the process ends.
    static auto& history = *new History;
    return history;
}

History::Number History::numberOf(Happening kind, const std::string& name) {
    const auto [place, fresh] =
        numbers_.try_emplace({kind, name}, static_cast<Number>(kinds_.size()));
    if (fresh) kinds_.push_back({kind, name});
    return place->second;
}

void History::add(Number event, std::vector<BriefArgument> arguments) {
    order_[added_++ % mostEvents] = event;
    latest_.push_back({event, Clock::shared().now(), std::move(arguments)});
    if (latest_.size() > mostLatest) latest_.pop_front();
    const Kind& kind = kinds_[event];
    if (BlackBox* box = BlackBox::ofThisProcess())
        box->note(latest_.back().time, wordOf(kind.happening), kind.name);
    if (!telling_ && !watching_.empty()) tell(kind.happening, latest_.back());
}

void History::tell(Happening kind, const Latest& entry) {
    telling_ = true;  // what telling it makes happen is not told
    std::string text;
    for (const auto& [ticket, watching] : watching_) {
        if (!watching.kinds.contains(kind)) continue;
        if (text.empty()) text = line(entry);
        watching.tell(kind, text);
    }
    telling_ = false;
}

History::Ticket History::watch(std::set<Happening> kinds, Watcher watcher) {
    watching_.emplace(++latestTicket_, Watching{std::move(kinds), std::move(watcher)});
    return latestTicket_;
}

std::set<History::Number> History::numbersWhere(
    Happening kind, const std::function<bool(const std::string&)>& accepts) const {
    std::set<Number> found;
    for (Number number = 0; number < kinds_.size(); ++number) {
        if (kinds_[number].happening == kind && accepts(kinds_[number].name)) found.insert(number);
    }
    return found;
}

std::size_t History::inOrder(const std::vector<std::set<Number>>& wanted) const {
    std::size_t met = 0;
    for (std::size_t place = first(); place < added_ && met < wanted.size(); ++place) {
        if (wanted[met].contains(at(place))) ++met;
    }
    return met;
}

long History::count(const std::set<Number>& events) const {
    long found = 0;
    for (std::size_t place = first(); place < added_; ++place)
        if (events.contains(at(place))) ++found;
    return found;
}

void History::clear() { added_ = 0; }

std::string History::line(const Latest& entry) const {
    const Kind& kind = kinds_[entry.event];
    std::string text = decimal(entry.time, 3) + " " + wordOf(kind.happening) + " " + kind.name;
    for (const BriefArgument& argument : entry.arguments)
        text += " " + std::visit(Writer{}, argument);
    return text;
}

std::vector<std::string> History::latest(std::size_t lines) const {
    std::vector<std::string> result;
    const std::size_t first = latest_.size() > lines ? latest_.size() - lines : 0;
    for (std::size_t i = first; i < latest_.size(); ++i) result.push_back(line(latest_[i]));
    return result;
}

}  // namespace simulator
