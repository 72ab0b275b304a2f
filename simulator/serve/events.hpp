// What happened, for pages that come and go: the latest events in order, each with a number. A page that
// reads too slowly finds that some are gone and is told how many; nothing waits for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <nlohmann/json.hpp>

namespace simulator::serve {

class Events {
  public:
    using Number = std::uint64_t;

    explicit Events(std::size_t kept = 4000) : kept_(kept) {}

    void add(nlohmann::json event);
    // The number of the next one.
    Number end() const { return first_ + events_.size(); }
    Number first() const { return first_; }

    struct Part {
        nlohmann::json events = nlohmann::json::array();
        Number lost = 0;  // gone before they were read
        Number next = 0;  // to go on from
    };
    // From that number on, at most so many.
    Part from(Number number, std::size_t most) const;

  private:
    std::size_t kept_;
    Number first_ = 0;
    std::deque<nlohmann::json> events_;
};

}  // namespace simulator::serve
