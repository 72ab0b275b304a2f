// The events of `expect order`, found in the history.
#pragma once

#include "simulator/scenario/phone.hpp"

namespace simulator {

EventsInOrder eventsInOrder(const std::vector<Event>& events);

}  // namespace simulator
