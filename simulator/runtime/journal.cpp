#include "simulator/runtime/journal.hpp"

#include <unordered_map>

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
};

// Never destroyed: objects may still be recorded while the process ends.
std::unordered_map<Key, Entry, KeyHash>& entries() {
    static auto& map = *new std::unordered_map<Key, Entry, KeyHash>;
    return map;
}

unsigned long order = 0;

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
        if (selector != key.selector) continue;
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

void Journal::note(Class definer, id self, const char* selector, std::vector<Argument> arguments) {
    Class receiver = object_getClass(self);
    // The recorded self must not be kept: it may be on its way out. Its class is enough.
    Entry& entry = entries()[{definer, receiver, selector}];
    ++entry.count;
    entry.latest = ++order;
    entry.arguments = std::move(arguments);
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

void Journal::clear() { entries().clear(); }

}  // namespace simulator
