// Numbers from a seed, the same on every machine: the library's distributions are not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace simulator::restless {

class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    // SplitMix64, of which any seed is as good as another.
    std::uint64_t next() {
        std::uint64_t mixed = state_ += 0x9e3779b97f4a7c15;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
        return mixed ^ (mixed >> 31);
    }
    // From 0 on; of so few numbers that what the remainder prefers is not seen.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
    bool chance(int percent) { return below(100) < static_cast<std::size_t>(percent); }
    double between(double least, double most) {
        return least + (most - least) * static_cast<double>(next() >> 11) * 0x1p-53;
    }
    template <class List>
    const auto& oneOf(const List& list) {
        return list[below(std::size(list))];
    }

  private:
    std::uint64_t state_;
};

}  // namespace simulator::restless
