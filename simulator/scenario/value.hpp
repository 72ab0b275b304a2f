// What an expression of a scenario can be worth, and how it prints.
//
// Strings, numbers in boxes, arrays and classes are objects; they are told apart when they are
// compared or printed. Objects are not owned here: an evaluation lives inside an autorelease pool
// and a named value is retained by the session.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct objc_object;
struct objc_selector;

namespace simulator::scenario {

// nil, and what a message to nil gives: equal to nil, 0, NO and a structure of zeros alike.
struct Nothing {};

// The result of a method that returns nothing.
struct Void {};

// A long double holds every 64-bit integer, signed or not, and every double exactly.
struct Number {
    enum class Kind { integer, real, boolean };
    long double value = 0;
    Kind kind = Kind::integer;
};

struct Object {
    objc_object* object;  // never null
};

struct Selector {
    const objc_selector* selector;  // never null
};

// A point or size has 2 members, a rectangle 4, an affine transform 6, in the order of memory.
struct Structure {
    std::vector<double> members;
};

using Value = std::variant<Nothing, Void, Number, Object, Selector, Structure>;

Value integerValue(long double number);
Value realValue(double number);
Value booleanValue(bool yes);
Value objectValue(objc_object* object);              // Nothing for a null object
Value stringValue(std::string_view text);            // throws EvaluationError when not UTF-8
Value selectorValue(const objc_selector* selector);  // Nothing for a null selector

// A number, also out of an NSNumber; nil counts as 0.
std::optional<Number> asNumber(const Value& value);

// The text of a string object.
std::optional<std::string> asText(const Value& value);

// The object, null for nil; nothing for what is no object.
std::optional<objc_object*> asObject(const Value& value);

// Whether `expect VALUE` holds: a number other than 0, or anything but nil.
bool isTrue(const Value& value);

// Points as {x, y}, reals with up to six decimals, strings in quotes, objects as <ClassName>.
std::string printed(const Value& value);
// A text as it is written in a scenario.
std::string quoted(const std::string& text);
// A number with all the digits that tell it from its neighbours.
std::string printedExactly(const Value& number);

}  // namespace simulator::scenario
