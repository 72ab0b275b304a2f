// How `expect` compares two values. Reals and structures of reals are equal within a relative
// 1e-6; `~` allows 0.5; strings and arrays are equal by contents, other objects by identity.
#pragma once

#include <optional>
#include <string_view>

#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

enum class Comparison { equal, notEqual, less, lessOrEqual, greater, greaterOrEqual, near };

// The comparison that is written `==`, `!=`, `<`, `<=`, `>`, `>=` or `~`.
std::optional<Comparison> comparisonWritten(std::string_view sign);

bool equal(const Value& left, const Value& right);

// Throws EvaluationError when the two have no order, or no distance for `~`.
bool holds(const Value& left, Comparison comparison, const Value& right);

}  // namespace simulator::scenario
