// The parsed form of what a scenario can compute. Trees are built once by the parser and then
// only read.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/value.hpp"

namespace simulator::scenario {

struct Expression;
using ExpressionPointer = std::shared_ptr<const Expression>;

enum class Operator { add, subtract, multiply, divide };

struct NumberLiteral {
    Number number;
};
struct StringLiteral {
    std::string bytes;
};
// YES, NO, nil, W, H, a value named by `let`, or a class.
struct Name {
    std::string name;
};
struct SelectorLiteral {
    std::string name;
};
struct Message {
    ExpressionPointer receiver;
    std::string selector;
    std::vector<ExpressionPointer> arguments;
};
struct StructureLiteral {
    std::vector<ExpressionPointer> members;
};
// A member of a structure; of an object, the message of that name.
struct Field {
    ExpressionPointer operand;
    std::string name;
};
struct KeyValue {
    ExpressionPointer operand;
    std::string key;
};
struct Presentation {
    ExpressionPointer operand;
};
struct Negation {
    ExpressionPointer operand;
};
struct Arithmetic {
    Operator operation;
    ExpressionPointer left;
    ExpressionPointer right;
};

struct Expression {
    std::variant<NumberLiteral, StringLiteral, Name, SelectorLiteral, Message, StructureLiteral,
                 Field, KeyValue, Presentation, Negation, Arithmetic>
        node;
    std::string text;  // as it stands in the source
    Position where;
};

}  // namespace simulator::scenario
