#include "simulator/restless/shrink.hpp"

#include <algorithm>
#include <set>

namespace simulator::restless {

namespace {

// Lines that go or stay together, by their places.
using Unit = std::vector<std::size_t>;

class Shrinking {
  public:
    Shrinking(std::vector<Event> events, const Fails& fails, int tries,
              const std::function<bool(const Event&)>& isKept)
        : events_(std::move(events)), fails_(fails), tries_(tries), isKept_(isKept) {}

    std::vector<Event> run() {
        for (const std::string_view kind : kinds()) leaveOut(ofKind(kind));
        leaveOutBySteps([this] { return wholes(); });
        leaveOutBySteps([this] { return moves(); });
        return std::move(events_);
    }

  private:
    // Not the line at which it fails, nor what belongs to that.
    bool mayGo(std::size_t place) const {
        const Event& event = events_[place];
        const bool ofTheLast = event.gesture != 0 && event.gesture == events_.back().gesture;
        return place + 1 < events_.size() && !isKept_(event) && (!ofTheLast || event.isMove);
    }
    std::set<std::string_view> kinds() const {
        std::set<std::string_view> names;
        for (const Event& event : events_) names.insert(event.kind);
        return names;
    }
    Unit ofKind(std::string_view kind) const {
        Unit unit;
        for (std::size_t place = 0; place < events_.size(); ++place) {
            if (mayGo(place) && events_[place].kind == kind) unit.push_back(place);
        }
        return unit;
    }
    std::vector<Unit> wholes() const {
        std::vector<Unit> units;
        std::set<int> seen;
        for (std::size_t place = 0; place < events_.size(); ++place) {
            const int gesture = events_[place].gesture;
            if (!mayGo(place) || (gesture != 0 && !seen.insert(gesture).second)) continue;
            if (gesture != 0 && gesture == events_.back().gesture) continue;
            units.push_back({place});
            for (std::size_t other = place + 1; gesture != 0 && other < events_.size(); ++other) {
                if (events_[other].gesture == gesture) units.back().push_back(other);
            }
        }
        return units;
    }
    std::vector<Unit> moves() const {
        std::vector<Unit> units;
        for (std::size_t place = 0; place < events_.size(); ++place) {
            if (mayGo(place) && events_[place].isMove) units.push_back({place});
        }
        return units;
    }

    bool leaveOut(const Unit& places) {
        if (places.empty() || tries_ <= 0) return false;
        --tries_;
        const std::set<std::size_t> out(places.begin(), places.end());
        std::vector<Event> fewer;
        for (std::size_t place = 0; place < events_.size(); ++place) {
            if (!out.contains(place)) fewer.push_back(events_[place]);
        }
        if (!fails_(fewer)) return false;
        events_ = std::move(fewer);
        return true;
    }

    // Halves of the units, quarters, and so on to single ones, until none of these can go.
    template <class Units>
    void leaveOutBySteps(Units units) {
        for (std::size_t size = std::max<std::size_t>(units().size() / 2, 1);;) {
            bool gone = false;
            for (std::size_t at = 0; at < units().size() && tries_ > 0;) {
                if (leaveOut(joined(units(), at, size)))
                    gone = true;
                else
                    at += size;
            }
            if ((size == 1 && !gone) || tries_ <= 0) return;
            size = std::max<std::size_t>(size / 2, 1);
        }
    }
    static Unit joined(const std::vector<Unit>& units, std::size_t first, std::size_t count) {
        Unit places;
        for (std::size_t at = first; at < std::min(first + count, units.size()); ++at)
            places.insert(places.end(), units[at].begin(), units[at].end());
        return places;
    }

    std::vector<Event> events_;
    const Fails& fails_;
    int tries_;
    const std::function<bool(const Event&)>& isKept_;
};

}  // namespace

std::vector<Event> shrunk(std::vector<Event> events, const Fails& fails, int tries,
                          const std::function<bool(const Event&)>& isKept) {
    return Shrinking(std::move(events), fails, tries, isKept).run();
}

}  // namespace simulator::restless
