// One function for each kind of expression.
#include "simulator/scenario/evaluator.hpp"

#include <array>
#include <cmath>
#include <string_view>

#include "simulator/scenario/key_value.hpp"
#include "simulator/scenario/messages.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

// Where a field lies in a structure of so many members.
struct FieldPlace {
    std::size_t members;
    std::string_view name;
    std::size_t first;
    std::size_t count;
};

constexpr std::array<FieldPlace, 16> fieldPlaces{{
    {2, "x", 0, 1},
    {2, "y", 1, 1},
    {2, "width", 0, 1},
    {2, "height", 1, 1},
    {4, "x", 0, 1},
    {4, "y", 1, 1},
    {4, "width", 2, 1},
    {4, "height", 3, 1},
    {4, "origin", 0, 2},
    {4, "size", 2, 2},
    {6, "a", 0, 1},
    {6, "b", 1, 1},
    {6, "c", 2, 1},
    {6, "d", 3, 1},
    {6, "tx", 4, 1},
    {6, "ty", 5, 1},
}};

Value fieldOf(const Structure& structure, const std::string& name) {
    for (const FieldPlace& place : fieldPlaces) {
        if (place.members != structure.members.size() || place.name != name) continue;
        const auto first = structure.members.begin() + static_cast<std::ptrdiff_t>(place.first);
        if (place.count == 1) return realValue(*first);
        return Structure{{first, first + static_cast<std::ptrdiff_t>(place.count)}};
    }
    throw EvaluationError(printed(structure) + " has no field " + name);
}

Number calculated(Operator operation, const Number& left, const Number& right) {
    const bool real = left.kind == Number::Kind::real || right.kind == Number::Kind::real;
    Number result{0, real ? Number::Kind::real : Number::Kind::integer};
    switch (operation) {
        case Operator::add:
            result.value = left.value + right.value;
            break;
        case Operator::subtract:
            result.value = left.value - right.value;
            break;
        case Operator::multiply:
            result.value = left.value * right.value;
            break;
        case Operator::divide:
            if (right.value == 0) throw EvaluationError("division by zero");
            result.value = left.value / right.value;
            if (std::trunc(result.value) != result.value) result.kind = Number::Kind::real;
    }
    return result;
}

void forget(const Value& value) {
    if (const auto* object = std::get_if<Object>(&value)) send<void>(object->object, "release");
}

}  // namespace

NamedValues::~NamedValues() {
    const AutoreleasePool pool;  // for what the objects let go of in turn
    for (const auto& [name, value] : values_) forget(value);
}

void NamedValues::set(const std::string& name, const Value& value) {
    if (const auto* object = std::get_if<Object>(&value)) send<id>(object->object, "retain");
    Value& place = values_[name];
    forget(place);
    place = value;
}

const Value* NamedValues::find(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? nullptr : &found->second;
}

Value Evaluator::operator()(const Expression& expression) const {
    return std::visit([this](const auto& node) { return worth(node); }, expression.node);
}

Number Evaluator::number(const Expression& expression) const {
    const Value value = (*this)(expression);
    if (const auto result = asNumber(value)) return *result;
    throw EvaluationError(expression.text + " is no number but " + printed(value));
}

Value Evaluator::worth(const Name& node) const {
    if (node.name == "YES") return booleanValue(true);
    if (node.name == "NO") return booleanValue(false);
    if (node.name == "nil") return Nothing{};
    if (node.name == "W") return realValue(phone_.screenBounds().width);
    if (node.name == "H") return realValue(phone_.screenBounds().height);
    if (const Value* named = names_.find(node.name)) return *named;
    if (const id cls = classNamed(node.name.c_str())) return objectValue(cls);
    throw EvaluationError("there is no class or value named " + node.name);
}

Value Evaluator::worth(const SelectorLiteral& node) const {
    return selectorValue(sel_registerName(node.name.c_str()));
}

Value Evaluator::worth(const Message& node) const {
    const Value receiver = (*this)(*node.receiver);
    std::vector<Value> arguments;
    for (const auto& argument : node.arguments) arguments.push_back((*this)(*argument));
    return sendMessage(receiver, node.selector, arguments);
}

Value Evaluator::worth(const StructureLiteral& node) const {
    Structure structure;
    for (const auto& member : node.members)
        structure.members.push_back(static_cast<double>(number(*member).value));
    return structure;
}

Value Evaluator::worth(const Field& node) const {
    const Value operand = (*this)(*node.operand);
    if (std::holds_alternative<Nothing>(operand)) return Nothing{};
    if (const auto* structure = std::get_if<Structure>(&operand))
        return fieldOf(*structure, node.name);
    if (std::holds_alternative<Object>(operand)) return sendMessage(operand, node.name, {});
    throw EvaluationError(printed(operand) + " has no field " + node.name);
}

Value Evaluator::worth(const KeyValue& node) const {
    return valueForKey((*this)(*node.operand), node.key);
}

Value Evaluator::worth(const Presentation& node) const {
    const Value operand = (*this)(*node.operand);
    const auto view = asObject(operand);
    if (!view) throw EvaluationError(printed(operand) + " is no view");
    return *view == nullptr ? Value(Nothing{}) : objectValue(phone_.presentation(*view));
}

Value Evaluator::worth(const Negation& node) const {
    Number result = number(*node.operand);
    result.value = -result.value;
    if (result.kind == Number::Kind::boolean) result.kind = Number::Kind::integer;
    return result;
}

Value Evaluator::worth(const Arithmetic& node) const {
    const Number left = number(*node.left);
    return calculated(node.operation, left, number(*node.right));
}

}  // namespace simulator::scenario
