// The list of recent applications, newest first, as the app switcher keeps it: application layouts
// that hold display items. It is saved to a file of the phone whenever it changes by use.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/handle.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

VANTORI_CLASS(SBRecentAppLayouts, Object);

// An application came to the front: it moves to the head of the list, which is then saved.
void noteRecent(const std::string& identifier);
// Replaces the list without saving it.
void setRecents(const std::vector<std::string>& identifiers);
// Bundle identifiers, newest first.
std::vector<std::string> recentIdentifiers();
NSArray recentLayoutObjects();
// What the scenario says, else what was saved when the phone was last on.
void restoreRecents();
// The one object that keeps the list; made on first use.
SBRecentAppLayouts recentAppLayouts();

void registerRecents();

}  // namespace simulator
