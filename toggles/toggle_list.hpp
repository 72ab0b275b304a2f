// The list of everyday toggles that the settings pane writes: which are shown, in which order. The
// root is an array whose first element is the array of keys; a key's slot is its index there.
#pragma once

#include <initializer_list>

#include "platform/foundation.hpp"

namespace vantori {

using namespace platform;

inline NSString toggleListPath() {
    return "/var/mobile/Library/Preferences/com.ferolin.VNTDailyToggleList.plist"_ns;
}

bool toggleListExists();
// Empty when the file cannot be read or holds no list.
NSArray toggleList();

struct KeyedToggle {
    NSString key;
    Object toggle;
};

// Six slots, each with the null object or the toggle whose key stands first at that index of the
// list; the toggles are placed in the order given here.
NSMutableArray toggleSlots(NSArray list, std::initializer_list<KeyedToggle> toggles);

// Whether a slot holds a toggle.
bool isFilled(Object slot);

}  // namespace vantori
