// Making a failure small: lines are left out, ever fewer at once, as long as it goes on failing in the
// same way (delta debugging). A gesture stays whole or goes as a whole; its moves go by themselves.
#pragma once

#include <functional>
#include <vector>

#include "simulator/restless/hand.hpp"

namespace simulator::restless {

using Fails = std::function<bool(const std::vector<Event>&)>;

// `events` fail; the last one, at which they do, stays, and so does what `isKept` says. At most `tries`
// are asked about.
std::vector<Event> shrunk(std::vector<Event> events, const Fails& fails, int tries,
                          const std::function<bool(const Event&)>& isKept);

}  // namespace simulator::restless
