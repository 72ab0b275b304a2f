// Arguments of the journal as values of scenarios.
#pragma once

#include <vector>

#include "simulator/runtime/journal.hpp"
#include "simulator/scenario/value.hpp"

namespace simulator {

std::vector<scenario::Value> journalValues(const std::vector<Argument>& arguments);

}  // namespace simulator
