// Comparing values: numbers first, then structures member by member, then objects.
#include "simulator/scenario/comparison.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

constexpr long double relativeTolerance = 1e-6L;
constexpr long double nearTolerance = 0.5L;
// What is left of sums that should have come to zero; nothing on a screen is this small.
constexpr long double zeroTolerance = 1e-9L;

bool realsEqual(long double left, long double right) {
    if (left == right) return true;
    const long double scale = std::max(std::fabs(left), std::fabs(right));
    if (!std::isfinite(scale)) return false;
    return std::fabs(left - right) <= std::max(zeroTolerance, relativeTolerance * scale);
}

bool realsNear(long double left, long double right) {
    return left == right || std::fabs(left - right) <= nearTolerance;
}

bool numbersEqual(const Number& left, const Number& right) {
    using Kind = Number::Kind;
    if (left.kind == Kind::real || right.kind == Kind::real)
        return realsEqual(left.value, right.value);
    if (left.kind == Kind::boolean && right.kind == Kind::boolean)
        return (left.value != 0) == (right.value != 0);
    return left.value == right.value;
}

// Both as structures of the same size; nil is a structure of zeros beside another one.
std::optional<std::pair<Structure, Structure>> structures(const Value& left, const Value& right) {
    const auto* first = std::get_if<Structure>(&left);
    const auto* second = std::get_if<Structure>(&right);
    const auto zeros = [](const Structure& like) {
        return Structure{std::vector<double>(like.members.size(), 0.0)};
    };
    if (first != nullptr && std::holds_alternative<Nothing>(right))
        return std::pair(*first, zeros(*first));
    if (second != nullptr && std::holds_alternative<Nothing>(left))
        return std::pair(zeros(*second), *second);
    if (first == nullptr || second == nullptr || first->members.size() != second->members.size())
        return std::nullopt;
    return std::pair(*first, *second);
}

template <typename Test>
bool everyMember(const std::pair<Structure, Structure>& both, Test test) {
    return std::equal(both.first.members.begin(), both.first.members.end(),
                      both.second.members.begin(), test);
}

bool objectsEqual(objc_object* left, objc_object* right) {
    if (left == right) return true;
    for (const char* comparedByContents : {"NSString", "NSArray"})
        if (isKindOf(left, comparedByContents) && isKindOf(right, comparedByContents))
            return send<BOOL>(left, "isEqual:", right) != 0;
    return false;
}

[[noreturn]] void refuse(const Value& left, const char* why, const Value& right) {
    throw EvaluationError(printed(left) + " and " + printed(right) + " have no " + why);
}

bool valuesNear(const Value& left, const Value& right) {
    if (const auto both = structures(left, right)) return everyMember(*both, realsNear);
    const auto first = asNumber(left);
    const auto second = asNumber(right);
    if (!first || !second) refuse(left, "distance", right);
    return realsNear(first->value, second->value);
}

bool less(const Value& left, const Value& right) {
    const auto first = asNumber(left);
    const auto second = asNumber(right);
    if (!first || !second) refuse(left, "order", right);
    return first->value < second->value;
}

bool bothNumbers(const Value& left, const Value& right) {
    const auto isNil = [](const Value& value) { return std::holds_alternative<Nothing>(value); };
    // An object, even a number in a box, is never nil.
    const auto isObject = [](const Value& value) { return std::holds_alternative<Object>(value); };
    if ((isNil(left) && isObject(right)) || (isNil(right) && isObject(left))) return false;
    return asNumber(left) && asNumber(right);
}

}  // namespace

std::optional<Comparison> comparisonWritten(std::string_view sign) {
    constexpr std::array<std::pair<std::string_view, Comparison>, 7> signs{{
        {"==", Comparison::equal},
        {"!=", Comparison::notEqual},
        {"<", Comparison::less},
        {"<=", Comparison::lessOrEqual},
        {">", Comparison::greater},
        {">=", Comparison::greaterOrEqual},
        {"~", Comparison::near},
    }};
    for (const auto& [written, comparison] : signs)
        if (written == sign) return comparison;
    return std::nullopt;
}

bool equal(const Value& left, const Value& right) {
    if (bothNumbers(left, right)) return numbersEqual(*asNumber(left), *asNumber(right));
    if (const auto both = structures(left, right)) return everyMember(*both, realsEqual);
    const auto* leftSelector = std::get_if<Selector>(&left);
    const auto* rightSelector = std::get_if<Selector>(&right);
    if (leftSelector != nullptr && rightSelector != nullptr)
        return sel_isEqual(leftSelector->selector, rightSelector->selector) != 0;
    const auto leftObject = asObject(left);
    const auto rightObject = asObject(right);
    return leftObject && rightObject && objectsEqual(*leftObject, *rightObject);
}

bool holds(const Value& left, Comparison comparison, const Value& right) {
    switch (comparison) {
        case Comparison::equal:
            return equal(left, right);
        case Comparison::notEqual:
            return !equal(left, right);
        case Comparison::less:
            return less(left, right);
        case Comparison::lessOrEqual:
            return less(left, right) || equal(left, right);
        case Comparison::greater:
            return less(right, left);
        case Comparison::greaterOrEqual:
            return less(right, left) || equal(left, right);
        case Comparison::near:
            break;
    }
    return valuesNear(left, right);
}

}  // namespace simulator::scenario
