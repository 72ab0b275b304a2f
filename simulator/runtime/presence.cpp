#include "simulator/runtime/presence.hpp"

#include "simulator/runtime/missing.hpp"

namespace simulator {

namespace {

int ownRelease = 0;

}  // namespace

void makeReal(int of) { ownRelease = of; }

int realRelease() { return ownRelease; }

bool has(std::string_view className, Kind kind, std::string_view name, On phones) {
    if (isMissingMethod(className, name)) return false;
    if (ownRelease == 0) return phones == On::allPhones;
    const auto known = finding(className, kind, name, ownRelease);
    return known ? known->found != Found::absent : phones == On::allPhones;
}

bool hasClass(std::string_view className, On phones) {
    if (isMissing(className)) return false;
    return has(className, Kind::type, "", phones);
}

}  // namespace simulator
