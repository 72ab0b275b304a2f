#include "simulator/runtime/missing.hpp"

#include <set>
#include <string>
#include <utility>

namespace simulator {

namespace {

std::set<std::string, std::less<>>& missing() {
    static auto& names = *new std::set<std::string, std::less<>>;
    return names;
}

using Method = std::pair<std::string, std::string>;

std::set<Method>& missingMethods() {
    static auto& methods = *new std::set<Method>;
    return methods;
}

}  // namespace

void setMissing(std::string className) { missing().insert(std::move(className)); }

bool isMissing(std::string_view className) { return missing().contains(className); }

void setMissingMethod(std::string className, std::string selector) {
    missingMethods().emplace(std::move(className), std::move(selector));
}

bool isMissingMethod(std::string_view className, std::string_view selector) {
    const auto& methods = missingMethods();
    return !methods.empty() &&
           methods.contains(Method(std::string(className), std::string(selector)));
}

}  // namespace simulator
