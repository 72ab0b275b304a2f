// A recursive-descent parser over a line's cursor.
#include "simulator/scenario/expression_parser.hpp"

#include <array>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

namespace simulator::scenario {
namespace {

// Deeper nesting than anyone writes, and far less than the stack holds.
constexpr int deepestNesting = 200;
// A long chain of operators is as deep a tree.
constexpr int mostNodes = 1000;

class Deeper {
  public:
    Deeper(int& depth, const Cursor& cursor) : depth_(depth) {
        if (++depth_ > deepestNesting) {
            --depth_;
            cursor.fail("the expression is nested too deeply");
        }
    }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

  private:
    int& depth_;
};

using OperatorSign = std::pair<std::string_view, Operator>;
constexpr std::array<OperatorSign, 2> sums{{{"+", Operator::add}, {"-", Operator::subtract}}};
constexpr std::array<OperatorSign, 2> products{
    {{"*", Operator::multiply}, {"/", Operator::divide}}};

std::optional<Operator> takeOperator(Cursor& cursor, const std::array<OperatorSign, 2>& signs) {
    for (const auto& [sign, operation] : signs)
        if (cursor.take(sign)) return operation;
    return std::nullopt;
}

}  // namespace

bool isReservedName(const std::string& name) {
    constexpr std::array<std::string_view, 7> reserved{"YES", "NO",           "nil", "W",
                                                       "H",   "presentation", "key"};
    for (const auto word : reserved)
        if (word == name) return true;
    return false;
}

void ExpressionParser::countNode() {
    if (++nodes_ > mostNodes) cursor_.fail("the expression is too long");
}

ExpressionPointer ExpressionParser::expression() {
    const Deeper deeper(depth_, cursor_);
    cursor_.skipBlanks();
    const std::size_t start = cursor_.offset();
    ExpressionPointer left = product();
    while (const auto operation = takeOperator(cursor_, sums)) {
        ExpressionPointer right = product();
        left = make(start, Arithmetic{*operation, std::move(left), std::move(right)});
    }
    return left;
}

ExpressionPointer ExpressionParser::product() {
    cursor_.skipBlanks();
    const std::size_t start = cursor_.offset();
    ExpressionPointer left = term();
    while (const auto operation = takeOperator(cursor_, products)) {
        ExpressionPointer right = term();
        left = make(start, Arithmetic{*operation, std::move(left), std::move(right)});
    }
    return left;
}

ExpressionPointer ExpressionParser::term() {
    const Deeper deeper(depth_, cursor_);
    cursor_.skipBlanks();
    const std::size_t start = cursor_.offset();
    ExpressionPointer result = primary();
    for (;;) {
        Cursor ahead = cursor_;
        if (!ahead.take(".")) return result;
        ahead.skipBlanks();
        if (!isIdentifierStart(ahead.peek())) ahead.expected("a field after the point");
        cursor_ = ahead;
        std::string field = cursor_.identifier();
        result = make(start, Field{std::move(result), std::move(field)});
    }
}

ExpressionPointer ExpressionParser::numericTerm(const std::string& wanted) {
    if (cursor_.atEnd()) cursor_.expected(wanted);
    Cursor ahead = cursor_;
    const std::string name = ahead.identifier();
    const bool known =
        name.empty() || name == "W" || name == "H" || name == "key" || names_.contains(name);
    if (!known || cursor_.peek() == '"' || cursor_.peek() == '{' || cursor_.peek() == '@')
        cursor_.expected(wanted);
    return term();
}

ExpressionPointer ExpressionParser::primary() {
    if (cursor_.atEnd()) cursor_.expected("an expression");
    const std::size_t start = cursor_.offset();
    if (cursor_.numberComesNext()) return numberLiteral(start);
    if (cursor_.peek() == '"') {
        std::string bytes = cursor_.string("a string");
        return make(start, StringLiteral{std::move(bytes)});
    }
    if (isIdentifierStart(cursor_.peek())) return named(start);
    if (cursor_.take("[")) return message(start);
    if (cursor_.take("{")) return structure(start);
    if (cursor_.take("@")) return at(start);
    if (cursor_.take("-")) {
        ExpressionPointer operand = term();
        return make(start, Negation{std::move(operand)});
    }
    if (cursor_.take("(")) {
        ExpressionPointer inner = expression();
        if (!cursor_.take(")")) cursor_.expected("')'");
        auto whole = *inner;
        whole.text = cursor_.textFrom(start);
        return std::make_shared<Expression>(std::move(whole));
    }
    cursor_.expected("an expression");
}

ExpressionPointer ExpressionParser::numberLiteral(std::size_t start) {
    const std::string digits = cursor_.number();
    const bool real = digits.find('.') != std::string::npos;
    // A fraction is the nearest double, as the phone's own numbers are.
    const Number number =
        real ? Number{std::strtod(digits.c_str(), nullptr), Number::Kind::real}
             : Number{std::strtold(digits.c_str(), nullptr), Number::Kind::integer};
    return make(start, NumberLiteral{number});
}

ExpressionPointer ExpressionParser::named(std::size_t start) {
    std::string name = cursor_.identifier();
    if (name == "key") return keyValue(start);
    if (name == "presentation") {
        const Deeper deeper(depth_, cursor_);
        ExpressionPointer operand = primary();
        return make(start, Presentation{std::move(operand)});
    }
    return make(start, Name{std::move(name)});
}

ExpressionPointer ExpressionParser::keyValue(std::size_t start) {
    ExpressionPointer operand = term();
    cursor_.skipBlanks();
    std::string key =
        isIdentifierStart(cursor_.peek()) ? cursor_.identifier() : cursor_.string("a key");
    return make(start, KeyValue{std::move(operand), std::move(key)});
}

ExpressionPointer ExpressionParser::at(std::size_t start) {
    if (cursor_.peek() == '"') {
        std::string bytes = cursor_.string("a string");
        return make(start, StringLiteral{std::move(bytes)});
    }
    if (cursor_.identifier() != "selector" || !cursor_.take("("))
        throw SyntaxError(cursor_.positionAt(start), "expected @selector(NAME)");
    std::string name = selectorName();
    if (!cursor_.take(")")) cursor_.expected("')' after the selector");
    return make(start, SelectorLiteral{std::move(name)});
}

std::string ExpressionParser::selectorName() {
    cursor_.skipBlanks();
    std::string name;
    if (cursor_.peek() == '"') name = cursor_.string("a selector");
    for (;;) {
        name += cursor_.identifier();
        if (!cursor_.take(":")) break;
        name += ':';
    }
    if (name.empty()) cursor_.expected("a selector");
    return name;
}

bool ExpressionParser::messagePartComesNext() {
    Cursor ahead = cursor_;
    ahead.identifier();
    return ahead.take(":");
}

ExpressionPointer ExpressionParser::message(std::size_t start) {
    Message message;
    message.receiver = expression();
    cursor_.skipBlanks();
    if (!messagePartComesNext()) {
        message.selector = cursor_.identifier();
        if (message.selector.empty()) cursor_.expected("a selector");
    }
    while (messagePartComesNext()) {
        message.selector += cursor_.identifier() + ":";
        cursor_.take(":");
        message.arguments.push_back(expression());
    }
    if (!cursor_.take("]")) cursor_.expected("']'");
    return make(start, std::move(message));
}

ExpressionPointer ExpressionParser::structure(std::size_t start) {
    StructureLiteral structure;
    do {
        structure.members.push_back(expression());
    } while (cursor_.take(","));
    if (!cursor_.take("}")) cursor_.expected("',' or '}'");
    const std::size_t count = structure.members.size();
    if (count != 2 && count != 4 && count != 6)
        throw SyntaxError(cursor_.positionAt(start),
                          "a point or size has 2 numbers, a rectangle 4, an affine transform 6");
    return make(start, std::move(structure));
}

}  // namespace simulator::scenario
