// The form of a statement, written the way its help shows it, and the statement that a line of
// that form is read into.
//
// In a pattern, small letters and signs stand for themselves, `yes|no` for one of several words,
// CAPITALS for what a writer fills in (each such slot is a row of the table in form.cpp), `[…]`
// for a tail that may be left out, and `...` after a slot for any number of it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "simulator/scenario/comparison.hpp"
#include "simulator/scenario/cursor.hpp"
#include "simulator/scenario/expression.hpp"
#include "simulator/scenario/json_text.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

class Line;

// When a statement may stand: before `boot` only, at any time, or after `boot` only.
enum class Phase { setup, always, booted };

struct Form {
    std::string_view pattern;
    Phase phase;
    std::string_view help;
    void (*run)(Line& line);

    std::string_view keyword() const { return pattern.substr(0, pattern.find(' ')); }
};

using Argument = std::variant<std::string, ExpressionPointer, JsonPointer, Comparison, Event>;

struct Statement {
    const Form* form = nullptr;
    std::map<std::string, std::vector<Argument>, std::less<>> arguments;  // by slot
    std::string choice;  // of `yes|no` and the like
    std::string text;
    int line = 0;

    // The text behind the keyword, or nothing when it begins with another.
    std::string withoutKeyword(std::string_view keyword) const {
        const bool begins = text.size() > keyword.size() && text.starts_with(keyword) &&
                            text[keyword.size()] == ' ';
        return begins ? text.substr(keyword.size() + 1) : "";
    }
};

// How far a line was understood as one form, and what stopped it.
struct Misfit {
    SyntaxError error;
    // When not empty, the line can only have been meant as a form that begins like this.
    std::string_view certain = {};
    Cursor where;  // only of use while the line's text is there
    // The word of the form that is not there, when that is what stopped it.
    std::string missingWord = {};
};

// Reads a whole line as a statement of that form; its text and number are left to the caller.
// `names` are those that `let` has given so far.
std::variant<Statement, Misfit> readAs(const Form& form, Cursor cursor,
                                       const std::set<std::string>& names);

// The words that such a slot can hold, parted by `|`; empty when they are not a few.
std::string_view choicesOf(std::string_view slot);

}  // namespace simulator::scenario
