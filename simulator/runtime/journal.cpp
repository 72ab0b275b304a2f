#include "simulator/runtime/journal.hpp"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "simulator/runtime/black_box.hpp"
#include "simulator/runtime/history.hpp"

namespace simulator {

namespace {

struct Key {
    Class definer;
    Class receiver;
    const char* selector;  // unique for each name in the runtime
    bool operator==(const Key&) const = default;
};
struct KeyHash {
    std::size_t operator()(const Key& key) const {
        auto mix = [](const void* p) { return std::hash<const void*>()(p); };
        return mix(key.definer) * 31 + mix(key.receiver) * 17 + mix(key.selector);
    }
};
struct Entry {
    long count = 0;
    unsigned long latest = 0;  // order of the latest run among all
    std::vector<Argument> arguments;
    std::string message;  // -[Class selector], by the receiver's class
    History::Number event = 0;
};

// Never destroyed: objects may still be recorded while the process ends.
std::unordered_map<Key, Entry, KeyHash>& entries() {
    static auto& map = *new std::unordered_map<Key, Entry, KeyHash>;
    return map;
}

unsigned long order = 0;
std::size_t inFlight = 0;

std::string written(Class receiver, const char* selector) {
    return std::string(class_isMetaClass(receiver) ? "+[" : "-[") + class_getName(receiver) + " " +
           selector + "]";
}

// What can be told of an argument later, without keeping it alive.
struct Brief {
    BriefArgument operator()(const platform::Strong<platform::Object>& object) const {
        if (!object) return std::monostate();
        return object_getClass(object.get());
    }
    BriefArgument operator()(const void*) const { return std::monostate(); }
    template <class T>
    BriefArgument operator()(const T& value) const {
        return value;
    }
};

// Room for arguments that are forgotten is used again: nearly every message would ask the heap for some.
// Several, as an object that goes with them is recorded in its turn.
class SpareRoom {
  public:
    static std::vector<Argument> take() {
        if (all().empty()) return {};
        std::vector<Argument> room = std::move(all().back());
        all().pop_back();
        return room;
    }
    static void forget(std::vector<Argument> arguments) {
        arguments.clear();
        all().push_back(std::move(arguments));
    }

  private:
    static std::vector<std::vector<Argument>>& all() {
        static auto& spare = *new std::vector<std::vector<Argument>>;
        return spare;
    }
};

// How many steps up from cls the class of that name is; -1 when it is none of them.
int distanceTo(Class cls, std::string_view name) {
    for (int steps = 0; cls; cls = class_getSuperclass(cls), ++steps) {
        if (name == class_getName(cls)) return steps;
    }
    return -1;
}

Class ancestor(Class cls, int steps) {
    while (steps-- > 0) cls = class_getSuperclass(cls);
    return cls;
}

// The entries of the implementation that the class itself has: its own, or else the nearest one that
// it inherits. An implementation that calls its superclass's is one run, not two.
std::vector<const std::pair<const Key, Entry>*> entriesOf(std::string_view className,
                                                          std::string_view selector) {
    std::vector<const std::pair<const Key, Entry>*> nearest;
    int best = -1;
    for (const auto& entry : entries()) {
        const Key& key = entry.first;
        if (entry.second.count == 0 || selector != key.selector) continue;
        int up = distanceTo(key.receiver, className);
        if (up < 0) continue;
        int inherited = distanceTo(ancestor(key.receiver, up), class_getName(key.definer));
        if (inherited < 0 || (best >= 0 && inherited > best)) continue;
        if (inherited != best) nearest.clear();
        best = inherited;
        nearest.push_back(&entry);
    }
    return nearest;
}

}  // namespace

Argument Passed::kept() const {
    switch (kind_) {
        case Kind::boolean:
            return boolean_;
        case Kind::integer:
            return integer_;
        case Kind::real:
            return real_;
        case Kind::point:
            return *static_cast<const CGPoint*>(pointer_);
        case Kind::size:
            return *static_cast<const CGSize*>(pointer_);
        case Kind::rect:
            return *static_cast<const CGRect*>(pointer_);
        case Kind::transform:
            return *static_cast<const CGAffineTransform*>(pointer_);
        case Kind::object:
            return platform::retained(
                platform::Object(static_cast<id>(const_cast<void*>(pointer_))));
        case Kind::cls:
            return static_cast<Class>(const_cast<void*>(pointer_));
        case Kind::selector:
            return static_cast<SEL>(pointer_);
        case Kind::other:
            break;
    }
    return pointer_;
}

std::size_t Journal::note(Class definer, id self, const char* selector,
                          std::initializer_list<Passed> passed) {
    std::vector<Argument> arguments;
    if (passed.size() > 0) arguments = SpareRoom::take();
    for (const Passed& argument : passed) arguments.push_back(argument.kept());
    Class receiver = object_getClass(self);
    // The recorded self must not be kept: it may be on its way out. Its class is enough.
    Entry& entry = entries()[{definer, receiver, selector}];
    if (entry.message.empty()) {
        entry.message = written(receiver, selector);
        // Two implementations of one message in a chain of classes are two events.
        const std::string owner = class_getName(definer);
        entry.event = History::shared().numberOf(
            Happening::called,
            owner == class_getName(receiver) ? entry.message : entry.message + " of " + owner);
    }
    std::array<BriefArgument, History::mostArguments> told;
    const std::size_t tellable = std::min(arguments.size(), told.size());
    for (std::size_t i = 0; i < tellable; ++i) told[i] = std::visit(Brief{}, arguments[i]);
    ++entry.count;
    entry.latest = ++order;
    std::swap(entry.arguments, arguments);
    if (passed.size() > 0) SpareRoom::forget(std::move(arguments));
    // Who is told finds the run in the journal.
    History::shared().add(entry.event, std::span(told).first(tellable));
    if (BlackBox* box = BlackBox::ofThisProcess()) box->enter(inFlight, entry.message);
    return inFlight++;
}

void Journal::leave(std::size_t depth) {
    inFlight = depth;
    if (BlackBox* box = BlackBox::ofThisProcess()) box->leave(depth);
}

long Journal::count(std::string_view className, std::string_view selector) {
    long sum = 0;
    for (const auto* entry : entriesOf(className, selector)) sum += entry->second.count;
    return sum;
}

std::optional<std::vector<Argument>> Journal::last(std::string_view className,
                                                   std::string_view selector) {
    const Entry* latest = nullptr;
    for (const auto* entry : entriesOf(className, selector)) {
        if (!latest || entry->second.latest > latest->latest) latest = &entry->second;
    }
    if (!latest) return std::nullopt;
    return latest->arguments;
}

std::set<std::uint32_t> Journal::events(std::string_view className, std::string_view selector) {
    std::set<std::uint32_t> found;
    for (const auto* entry : entriesOf(className, selector)) found.insert(entry->second.event);
    return found;
}

void Journal::clear() {
    // Objects that go are recorded in their turn, so they go last.
    std::vector<std::vector<Argument>> forgotten;
    for (auto& [key, entry] : entries()) {
        entry.count = 0;
        forgotten.push_back(std::move(entry.arguments));
        entry.arguments.clear();
    }
}

}  // namespace simulator
