// Numbers, names and values as the hand writes them.
#pragma once

#include <string>

#include "simulator/restless/random.hpp"

namespace simulator::restless {

// With one digit behind the point, or two for seconds.
std::string points(double number);
std::string seconds(double number);

std::string aBundle(Random& random);
std::string someBundles(Random& random);

// A statement that sets a setting as the pane does, or to what no pane writes.
std::string soundSetting(Random& random);
std::string wrongSetting(Random& random);

}  // namespace simulator::restless
