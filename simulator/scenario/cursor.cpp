// Reading a line: see the header.
#include "simulator/scenario/cursor.hpp"

#include <algorithm>

namespace simulator::scenario {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

bool isBlank(char character) { return character == ' ' || character == '\t' || character == '\r'; }

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isIdentifierStart(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           character == '_';
}

bool isIdentifierPart(char character) { return isIdentifierStart(character) || isDigit(character); }

std::string_view Cursor::withoutComment(std::string_view line) {
    bool inString = false;
    for (std::size_t index = 0; index < line.size(); ++index) {
        if (inString && line[index] == '\\')
            ++index;
        else if (line[index] == '"')
            inString = !inString;
        else if (line[index] == '#' && !inString)
            return line.substr(0, index);
    }
    return line;
}

void Cursor::skipBlanks() {
    while (isBlank(peek())) ++offset_;
}

bool Cursor::atEnd() {
    skipBlanks();
    return offset_ >= text_.size();
}

char Cursor::peekAfter(std::size_t characters) const {
    return offset_ + characters < text_.size() ? text_[offset_ + characters] : '\0';
}

bool Cursor::take(std::string_view sign) {
    skipBlanks();
    if (!text_.substr(offset_).starts_with(sign)) return false;
    offset_ += sign.size();
    return true;
}

bool Cursor::takeWord(std::string_view word) {
    const std::size_t start = offset_;
    if (!take(word)) return false;
    if (offset_ >= text_.size() || isBlank(peek()) || peek() == '"') return true;
    offset_ = start;
    return false;
}

std::string Cursor::identifier() {
    skipBlanks();
    const std::size_t start = offset_;
    if (!isIdentifierStart(peek())) return {};
    while (isIdentifierPart(peek())) ++offset_;
    return std::string(text_.substr(start, offset_ - start));
}

std::string Cursor::word(const std::string& wanted) {
    if (atEnd()) expected(wanted);
    if (peek() == '"') return string(wanted);
    const std::size_t start = offset_;
    while (offset_ < text_.size() && !isBlank(peek())) {
        if (peek() == '"') fail("a quote in the middle of a word");
        ++offset_;
    }
    return std::string(text_.substr(start, offset_ - start));
}

void Cursor::skipWord() {
    while (offset_ < text_.size() && !isBlank(peek()) && peek() != ',') ++offset_;
}

std::string Cursor::string(const std::string& wanted) {
    skipBlanks();
    if (peek() != '"') expected(wanted + " in double quotes");
    const Position start = position();
    std::string bytes;
    for (++offset_; offset_ < text_.size(); ++offset_) {
        const char character = text_[offset_];
        if (character == '"') {
            ++offset_;
            return bytes;
        }
        if (character != '\\') {
            bytes += character;
            continue;
        }
        switch (peekAfter(1)) {
            case '"':
            case '\\':
                bytes += peekAfter(1);
                break;
            case 'n':
                bytes += '\n';
                break;
            default:
                fail("a backslash in a string stands before \", \\ or n only");
        }
        ++offset_;
    }
    throw SyntaxError(start, "the string has no closing quote");
}

bool Cursor::numberComesNext() const {
    std::size_t ahead = peek() == '-' || peek() == '+' ? 1 : 0;
    if (peekAfter(ahead) == '.') ++ahead;
    return isDigit(peekAfter(ahead));
}

std::string Cursor::number() {
    skipBlanks();
    if (!numberComesNext()) expected("a number");
    const std::size_t start = offset_;
    if (peek() == '-' || peek() == '+') ++offset_;
    while (isDigit(peek())) ++offset_;
    if (peek() == '.' && isDigit(peekAfter(1))) {
        ++offset_;
        while (isDigit(peek())) ++offset_;
    }
    if (isIdentifierPart(peek()) || peek() == '.')
        throw SyntaxError(positionAt(start), "a number is decimal, with an optional fraction");
    return std::string(text_.substr(start, offset_ - start));
}

std::string_view Cursor::rest() {
    skipBlanks();
    const std::string_view remaining = trimmed(text_.substr(offset_));
    offset_ = text_.size();
    return remaining;
}

std::string Cursor::textFrom(std::size_t start) const {
    return std::string(trimmed(text_.substr(start, offset_ - start)));
}

Position Cursor::positionAt(std::size_t offset) const {
    // A byte that continues a character of UTF-8 does not begin a column.
    const auto before = text_.substr(0, offset);
    const auto characters = std::count_if(before.begin(), before.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    });
    return {line_, static_cast<int>(characters) + 1};
}

void Cursor::expected(const std::string& wanted) {
    if (atEnd()) fail("expected " + wanted + ", but the line ends");
    constexpr std::size_t longest = 40;
    Cursor next = *this;
    while (next.offset_ < text_.size() && !isBlank(next.peek())) ++next.offset_;
    const std::string got = next.textFrom(offset_);
    fail("expected " + wanted + ", got '" +
         (got.size() > longest ? got.substr(0, longest) + "…" : got) + "'");
}

}  // namespace simulator::scenario
