// Finding the form that a line has, and checking that it may stand where it stands.
#include "simulator/scenario/parser.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

std::string keywordOf(Cursor cursor) {
    if (!isIdentifierStart(cursor.peek())) cursor.expected("a statement");
    const std::size_t start = cursor.offset();
    while (isIdentifierPart(cursor.peek()) || cursor.peek() == '-') {
        const char character[] = {cursor.peek(), '\0'};
        cursor.take(character);
    }
    return cursor.textFrom(start);
}

// The blanks outside of strings made one each.
std::string normalised(std::string_view text) {
    std::string result;
    bool inString = false;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char character = text[index];
        if (isBlank(character) && !inString) {
            if (!result.empty() && result.back() != ' ') result += ' ';
            continue;
        }
        result += character;
        if (inString && character == '\\' && index + 1 < text.size()) result += text[++index];
        if (character == '"') inString = !inString;
    }
    if (result.ends_with(' ')) result.pop_back();
    return result;
}

// What a line of no form is blamed for: what stopped the form that got furthest. Where several
// forms only lack a word at that place, all these words are named.
class Blame {
  public:
    void add(const Misfit& misfit) {
        const int column = misfit.error.where().column;
        const int furthest = nearest_ ? nearest_->error.where().column : 0;
        if (column < furthest) return;
        if (column > furthest) words_.clear();
        if (misfit.missingWord.empty() || !nearest_ || column > furthest) nearest_ = misfit;
        if (misfit.missingWord.empty()) return;
        if (std::find(words_.begin(), words_.end(), misfit.missingWord) == words_.end())
            words_.push_back(misfit.missingWord);
    }

    bool empty() const { return !nearest_; }

    [[noreturn]] void raise() const {
        if (nearest_->missingWord.empty()) throw nearest_->error;
        std::string wanted = words_.front();
        for (std::size_t index = 1; index < words_.size(); ++index)
            wanted += (index + 1 == words_.size() ? " or " : ", ") + words_[index];
        Cursor(nearest_->where).expected(wanted);
    }

  private:
    std::optional<Misfit> nearest_;
    std::vector<std::string> words_;
};

Statement readByAnyForm(const Cursor& cursor, const std::set<std::string>& names) {
    const std::string keyword = keywordOf(cursor);
    Blame blame;
    std::string_view certain;
    for (const StatementGroup& group : statementGroups()) {
        for (const Form& form : group.forms) {
            if (form.keyword() != keyword || !form.pattern.starts_with(certain)) continue;
            auto outcome = readAs(form, cursor, names);
            if (auto* statement = std::get_if<Statement>(&outcome)) return std::move(*statement);
            const auto& misfit = std::get<Misfit>(outcome);
            if (certain.empty() && !misfit.certain.empty()) {
                certain = misfit.certain;
                blame = {};  // what other beginnings lack is of no interest
            }
            blame.add(misfit);
        }
    }
    if (blame.empty())
        cursor.fail("there is no statement '" + keyword + "'" + meant(keyword, keywords()));
    blame.raise();
}

}  // namespace

std::optional<Statement> Parser::line(std::string_view text, int number) {
    const std::string_view code = Cursor::withoutComment(text);
    Cursor cursor(code, number);
    if (cursor.atEnd()) return std::nullopt;
    Statement statement = readByAnyForm(cursor, names_);
    statement.text = normalised(code);
    statement.line = number;
    const std::string keyword(statement.form->keyword());
    if (statement.form->phase == Phase::setup && booted_)
        cursor.fail(keyword == "boot" ? "the phone has booted already"
                                      : "'" + keyword + "' must stand before 'boot'");
    if (statement.form->phase == Phase::booted && !booted_)
        cursor.fail("'" + keyword + "' must stand after 'boot'");
    if (keyword == "boot") booted_ = true;
    if (keyword == "let")
        names_.insert(std::get<std::string>(statement.arguments.at("VARIABLE").front()));
    return statement;
}

std::vector<Statement> parse(std::string_view text) {
    Parser parser;
    std::vector<Statement> statements;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        if (auto statement = parser.line(text.substr(0, end), number))
            statements.push_back(std::move(*statement));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return statements;
}

std::string readFile(const std::filesystem::path& file) {
    if (std::filesystem::is_directory(file)) throw std::runtime_error("it is a folder");
    errno = 0;
    std::ifstream input(file, std::ios::binary);
    std::ostringstream bytes;
    if (input) bytes << input.rdbuf();
    if (!input) throw std::runtime_error(errno == 0 ? "it cannot be read" : std::strerror(errno));
    return bytes.str();
}

}  // namespace simulator::scenario
