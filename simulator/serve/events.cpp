#include "simulator/serve/events.hpp"

#include <algorithm>

namespace simulator::serve {

void Events::add(nlohmann::json event) {
    events_.push_back(std::move(event));
    if (events_.size() <= kept_) return;
    events_.pop_front();
    ++first_;
}

Events::Part Events::from(Number number, std::size_t most) const {
    Part part;
    const Number start = std::max(number, first_);
    part.lost = start - number;
    part.next = std::min<Number>(end(), start + most);
    for (Number each = start; each < part.next; ++each)
        part.events.push_back(events_[static_cast<std::size_t>(each - first_)]);
    return part;
}

}  // namespace simulator::serve
