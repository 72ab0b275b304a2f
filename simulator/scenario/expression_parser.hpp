// Reads expressions from a line:
//
//   EXPR := TERM | TERM OP2 TERM …      OP2: + - * / on numbers; * and / bind tighter
//   TERM := number | string | YES | NO | nil | W | H | NAME | CLASSNAME | @selector(NAME)
//         | [ EXPR selector ] | [ EXPR word: EXPR word: EXPR … ] | { EXPR, EXPR, … }
//         | TERM . field | presentation TERM | key TERM "NAME" | ( EXPR )
#pragma once

#include <set>
#include <string>

#include "simulator/scenario/cursor.hpp"
#include "simulator/scenario/expression.hpp"

namespace simulator::scenario {

class ExpressionParser {
  public:
    // `names` are those that `let` has given so far.
    ExpressionParser(Cursor& cursor, const std::set<std::string>& names)
        : cursor_(cursor), names_(names) {}

    ExpressionPointer expression();
    ExpressionPointer term();
    // A term where only a number makes sense: a name must be known then.
    ExpressionPointer numericTerm(const std::string& wanted);

  private:
    ExpressionPointer product();
    ExpressionPointer primary();
    ExpressionPointer named(std::size_t start);
    ExpressionPointer message(std::size_t start);
    ExpressionPointer structure(std::size_t start);
    ExpressionPointer at(std::size_t start);
    ExpressionPointer keyValue(std::size_t start);
    ExpressionPointer numberLiteral(std::size_t start);
    std::string selectorName();
    // Whether a word and then a colon come next: the next part of a message.
    bool messagePartComesNext();

    // Throws when the line holds more than anyone writes.
    void countNode();

    template <typename Node>
    ExpressionPointer make(std::size_t start, Node node) {
        countNode();
        return std::make_shared<Expression>(
            Expression{std::move(node), cursor_.textFrom(start), cursor_.positionAt(start)});
    }

    Cursor& cursor_;
    const std::set<std::string>& names_;
    int depth_ = 0;
    int nodes_ = 0;
};

// Words that a value cannot be named by.
bool isReservedName(const std::string& name);

}  // namespace simulator::scenario
