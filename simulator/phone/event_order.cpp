#include "simulator/phone/event_order.hpp"

#include "simulator/runtime/history.hpp"
#include "simulator/runtime/journal.hpp"

namespace simulator {

namespace {

std::set<History::Number> numbersOf(const Event& event) {
    History& history = History::shared();
    const auto named = [&](Happening kind) {
        return history.numbersWhere(kind,
                                    [&](const std::string& name) { return name == event.name; });
    };
    switch (event.kind) {
        case Event::Kind::called:
            return Journal::events(event.name, event.selector);
        case Event::Kind::posted:
            return named(Happening::posted);
        case Event::Kind::darwinPosted:
            return named(Happening::darwinPosted);
        case Event::Kind::haptic:
            return named(Happening::haptic);
        case Event::Kind::launched:
            return named(Happening::launched);
        case Event::Kind::logged:
            break;
    }
    return history.numbersWhere(Happening::logged, [&](const std::string& line) {
        return line.find(event.name) != std::string::npos;
    });
}

}  // namespace

EventsInOrder eventsInOrder(const std::vector<Event>& events) {
    const History& history = History::shared();
    if (history.forgot())
        throw PhoneError("too much has happened to know the order: `clear` before what matters");
    std::vector<std::set<History::Number>> wanted;
    for (const Event& event : events) wanted.push_back(numbersOf(event));
    EventsInOrder outcome{history.inOrder(wanted), 0};
    if (outcome.met < wanted.size()) outcome.inAll = history.count(wanted[outcome.met]);
    return outcome;
}

}  // namespace simulator
