// What a restless hand does, and how often.
#pragma once

#include <span>

#include "simulator/restless/hand.hpp"

namespace simulator::restless {

std::span<const Habit> habits();

}  // namespace simulator::restless
