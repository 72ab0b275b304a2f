// Reads one line of a scenario from left to right: blanks, words, strings, numbers and signs.
// It never goes back by itself; who tries two readings keeps a copy.
#pragma once

#include <string>
#include <string_view>

#include "simulator/scenario/errors.hpp"

namespace simulator::scenario {

class Cursor {
  public:
    // The line without its comment; `line` is its number. The text must outlive the cursor.
    Cursor(std::string_view text, int line) : text_(text), line_(line) {}

    // Leaves out everything from the first `#` that is outside of a string.
    static std::string_view withoutComment(std::string_view line);

    bool atEnd();
    void skipBlanks();
    char peek() const { return offset_ < text_.size() ? text_[offset_] : '\0'; }
    char peekAfter(std::size_t characters) const;

    // Takes the sign when it comes next.
    bool take(std::string_view sign);
    // Takes the word when it comes next and ends there.
    bool takeWord(std::string_view word);

    // Letters, digits and underscores, not beginning with a digit; empty when none comes next.
    std::string identifier();
    // A word as it stands, or a string.
    std::string word(const std::string& wanted);
    // Goes on to the next blank or comma.
    void skipWord();
    // What stands in double quotes.
    std::string string(const std::string& wanted);
    // A decimal number with an optional sign and fraction, as it is written.
    std::string number();
    bool numberComesNext() const;

    // Everything up to the end of the line, without the blanks around it.
    std::string_view rest();

    std::size_t offset() const { return offset_; }
    // The text from an offset up to here, without the blanks around it.
    std::string textFrom(std::size_t start) const;
    Position position() const { return positionAt(offset_); }
    Position positionAt(std::size_t offset) const;

    // "expected WANTED, got …" at the next word.
    [[noreturn]] void expected(const std::string& wanted);
    [[noreturn]] void fail(const std::string& what) const { throw SyntaxError(position(), what); }

  private:
    std::string_view text_;
    int line_;
    std::size_t offset_ = 0;
};

bool isBlank(char character);
bool isDigit(char character);
bool isIdentifierStart(char character);
bool isIdentifierPart(char character);

}  // namespace simulator::scenario
