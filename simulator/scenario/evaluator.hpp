// Works out what an expression is worth: messages are sent, names looked up.
#pragma once

#include <map>
#include <string>

#include "simulator/scenario/expression.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

// The values that `let` has named. Objects are retained while they are named.
class NamedValues {
  public:
    NamedValues() = default;
    ~NamedValues();
    NamedValues(const NamedValues&) = delete;
    NamedValues& operator=(const NamedValues&) = delete;

    void set(const std::string& name, const Value& value);
    const Value* find(const std::string& name) const;

  private:
    std::map<std::string, Value> values_;
};

class Evaluator {
  public:
    Evaluator(Phone& phone, const NamedValues& names) : phone_(phone), names_(names) {}

    // Throws EvaluationError, or PhoneError when the phone refuses to show something.
    Value operator()(const Expression& expression) const;

  private:
    Value worth(const NumberLiteral& node) const { return node.number; }
    Value worth(const StringLiteral& node) const { return stringValue(node.bytes); }
    Value worth(const Name& node) const;
    Value worth(const SelectorLiteral& node) const;
    Value worth(const Message& node) const;
    Value worth(const StructureLiteral& node) const;
    Value worth(const Field& node) const;
    Value worth(const KeyValue& node) const;
    Value worth(const Presentation& node) const;
    Value worth(const Negation& node) const;
    Value worth(const Arithmetic& node) const;
    Number number(const Expression& expression) const;

    Phone& phone_;
    const NamedValues& names_;
};

}  // namespace simulator::scenario
