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

bool isKindOf(Class cls, std::string_view name) {
    for (; cls; cls = class_getSuperclass(cls)) {
        if (name == class_getName(cls)) return true;
    }
    return false;
}

bool concerns(const Key& key, std::string_view className, std::string_view selector) {
    return selector == key.selector &&
           (className == class_getName(key.definer) || isKindOf(key.receiver, className));
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
    for (const auto& [key, entry] : entries()) {
        if (concerns(key, className, selector)) sum += entry.count;
    }
    return sum;
}

std::optional<std::vector<Argument>> Journal::last(std::string_view className,
                                                   std::string_view selector) {
    const Entry* latest = nullptr;
    for (const auto& [key, entry] : entries()) {
        if (concerns(key, className, selector) && (!latest || entry.latest > latest->latest)) {
            latest = &entry;
        }
    }
    if (!latest) return std::nullopt;
    return latest->arguments;
}

void Journal::clear() { entries().clear(); }

}  // namespace simulator
