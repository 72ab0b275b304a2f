// What was handed to MSHookMessageEx, in order: the phone's side of the injection framework.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Handover {
    std::string className;  // empty when the class was nil
    std::string selector;
    bool installed;  // false when the class or the method was not there
};

// Every call, also the ones that installed nothing.
const std::vector<Handover>& handovers();
// Whether a class of that name was handed over with that selector.
bool wasHooked(std::string_view className, std::string_view selector);

// A line for each of them: the method, and what became of it.
std::string hookList();

}  // namespace simulator
