#include "toggles/toggle_list.hpp"

namespace vantori {

namespace {

constexpr unsigned long slotCount = 6;

struct NSNull : Object {
    static constexpr FixedString name{"NSNull"};
    using Object::Object;
    static NSNull null() { return sendClass<NSNull, "null", NSNull>(); }
};

Class arrayClass() { return classOf<NSArray>(); }

// A longer list grows the row by one at its very end. Farther out the platform raises and takes
// SpringBoard with it; such a key is left out.
void put(NSMutableArray slots, unsigned long index, Object toggle) {
    if (index < slots.count()) {
        slots.replace(index, toggle);
    } else if (index == slots.count()) {
        slots.add(toggle);
    }
}

}  // namespace

bool toggleListExists() { return NSFileManager::shared().fileExists(toggleListPath()); }

NSArray toggleList() {
    NSArray root = NSArray::withContentsOfFile(toggleListPath());
    if (root.count() == 0) return NSArray();
    Object list = root.at(0);
    return list.isKindOfClass(arrayClass()) ? as<NSArray>(list) : NSArray();
}

NSMutableArray toggleSlots(NSArray list, std::initializer_list<KeyedToggle> toggles) {
    NSMutableArray slots = NSMutableArray::withCapacity(list.count());
    for (unsigned long i = 0; i < slotCount; ++i) slots.add(NSNull::null());
    for (const auto& [key, toggle] : toggles) {
        if (toggle && list.contains(key)) put(slots, list.indexOf(key), toggle);
    }
    return slots;
}

bool isFilled(Object slot) { return slot && !(slot == NSNull::null()); }

}  // namespace vantori
