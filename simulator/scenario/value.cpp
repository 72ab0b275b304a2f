// Values: how they are made from and turned back into objects, and how they print.
#include "simulator/scenario/value.hpp"

#include <array>
#include <cmath>
#include <cstdio>

#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

std::optional<Number> unbox(objc_object* object) {
    if (!isKindOf(object, "NSNumber")) return std::nullopt;
    switch (*send<const char*>(object, "objCType")) {
        case 'f':
        case 'd':
            return Number{send<double>(object, "doubleValue"), Number::Kind::real};
        case 'B':
        case 'c':
        case 'C':
            return Number{static_cast<long double>(send<long long>(object, "longLongValue")),
                          Number::Kind::boolean};
        case 'I':
        case 'S':
        case 'L':
        case 'Q':
            return Number{
                static_cast<long double>(send<unsigned long long>(object, "unsignedLongLongValue")),
                Number::Kind::integer};
        default:
            return Number{static_cast<long double>(send<long long>(object, "longLongValue")),
                          Number::Kind::integer};
    }
}

std::string decimal(long double number, int decimals) {
    // Room for the largest double, which has 309 digits before the point.
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*Lf", decimals, number);
    return buffer.data();
}

std::string printedReal(long double number) {
    if (!std::isfinite(number)) return decimal(number, 0);
    std::string text = decimal(number, 6);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

struct Printer {
    std::string operator()(Nothing) const { return "nil"; }
    std::string operator()(Void) const { return "void"; }
    std::string operator()(const Number& number) const {
        switch (number.kind) {
            case Number::Kind::boolean:
                return number.value != 0 ? "YES" : "NO";
            case Number::Kind::integer:
                return decimal(number.value, 0);
            case Number::Kind::real:
                break;
        }
        return printedReal(number.value);
    }
    std::string operator()(const Object& value) const {
        if (const auto text = stringBytes(value.object)) return quoted(*text);
        if (const auto number = unbox(value.object)) return (*this)(*number);
        return "<" + classNameOf(value.object) + ">";
    }
    std::string operator()(const Selector& value) const {
        return std::string("@selector(") + sel_getName(value.selector) + ")";
    }
    std::string operator()(const Structure& value) const {
        std::string text;
        for (const double member : value.members)
            text += (text.empty() ? "" : ", ") + printedReal(member);
        return "{" + text + "}";
    }
};

}  // namespace

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') result += '\\';
        if (character == '\n')
            result += "\\n";
        else
            result += character;
    }
    return result + '"';
}

std::string printedExactly(const Value& value) {
    const auto number = asNumber(value);
    if (!number) return printed(value);
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.17g", static_cast<double>(number->value));
    return buffer.data();
}

Value integerValue(long double number) { return Number{number, Number::Kind::integer}; }

Value realValue(double number) { return Number{number, Number::Kind::real}; }

Value booleanValue(bool yes) { return Number{yes ? 1.0L : 0.0L, Number::Kind::boolean}; }

Value objectValue(objc_object* object) {
    if (object == nullptr) return Nothing{};
    return Object{object};
}

Value stringValue(std::string_view text) {
    const id string = makeString(text);
    if (string == nullptr) throw EvaluationError("the string is not UTF-8");
    return Object{string};
}

Value selectorValue(const objc_selector* selector) {
    if (selector == nullptr) return Nothing{};
    return Selector{selector};
}

std::optional<Number> asNumber(const Value& value) {
    if (const auto* number = std::get_if<Number>(&value)) return *number;
    if (const auto* object = std::get_if<Object>(&value)) return unbox(object->object);
    if (std::holds_alternative<Nothing>(value)) return Number{};
    return std::nullopt;
}

std::optional<std::string> asText(const Value& value) {
    if (const auto* object = std::get_if<Object>(&value)) return stringBytes(object->object);
    return std::nullopt;
}

std::optional<objc_object*> asObject(const Value& value) {
    if (const auto* object = std::get_if<Object>(&value)) return object->object;
    if (std::holds_alternative<Nothing>(value)) return nullptr;
    return std::nullopt;
}

bool isTrue(const Value& value) {
    if (const auto* number = std::get_if<Number>(&value)) return number->value != 0;
    return !std::holds_alternative<Nothing>(value) && !std::holds_alternative<Void>(value);
}

std::string printed(const Value& value) { return std::visit(Printer{}, value); }

}  // namespace simulator::scenario
