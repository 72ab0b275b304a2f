// A class written with the runtime's own functions, with a method for every type encoding.
#pragma once

namespace simulator::scenario {

// Registers the class `ScenarioSpecimen` with
//   +shared, +make           one instance for good; a new one, autoreleased
//   -takeB: -takei: …        give back what they were given, by the encoding in their name
//   -frame -setFrame:        a rectangle in an instance variable `frame`
//   -raise                   raises an NSException
// and the instance variables `_hidden` (an int, 7) and `plain` (a double, 2.5).
void registerSpecimen();

// The instances that have not been deallocated, other than the shared one.
int livingSpecimens();

}  // namespace simulator::scenario
