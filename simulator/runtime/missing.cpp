#include "simulator/runtime/missing.hpp"

#include <set>

namespace simulator {

namespace {

std::set<std::string, std::less<>>& missing() {
    static auto& names = *new std::set<std::string, std::less<>>;
    return names;
}

}  // namespace

void setMissing(std::string className) { missing().insert(std::move(className)); }

bool isMissing(std::string_view className) { return missing().contains(className); }

}  // namespace simulator
