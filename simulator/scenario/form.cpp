// Patterns, slots, and reading a line by them.
#include "simulator/scenario/form.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "simulator/runtime/date.hpp"
#include "simulator/scenario/expression_parser.hpp"
#include "simulator/scenario/json_text.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/services/system_settings.hpp"

namespace simulator::scenario {
namespace {

enum class Shape {
    word,
    device,
    oneOf,
    version,
    day,
    time,
    text,
    number,
    duration,
    count,
    json,
    value,
    term,
    name,
    view,
    event,
    sign
};

struct Slot {
    std::string_view name;
    Shape shape;
    std::string_view wanted;
    std::string_view words = {};  // of oneOf, parted by `|`
};

constexpr std::array<Slot, 47> slots{{
    {"IDENT", Shape::device, "a machine identifier"},
    {"KEY", Shape::word, "a key"},
    {"PATH", Shape::word, "a path"},
    {"CLASS", Shape::word, "a class"},
    {"SELECTOR", Shape::word, "a selector"},
    {"BUNDLE", Shape::word, "a bundle identifier"},
    {"NAME", Shape::word, "a name"},
    {"DAY", Shape::day, "a day such as 2018-01-09"},
    {"TIME", Shape::time, "a time such as 09:41"},
    {"CODE", Shape::word, "a language such as de or pt-BR"},
    {"FILE", Shape::word, "the name of a picture"},
    {"RECORDING", Shape::word, "the name of a scenario"},
    {"ROUTE", Shape::oneOf, "Speaker or HeadphonesBT", "Speaker|HeadphonesBT"},
    {"TOGGLE", Shape::oneOf, "the name of a system setting", settingWords.view()},
    {"X.Y", Shape::version, "a version such as 13.3"},
    {"TEXT", Shape::text, "a text"},
    {"TITLE", Shape::text, "a title"},
    {"ARTIST", Shape::text, "an artist"},
    {"ALBUM", Shape::text, "an album"},
    {"ARTWORKID", Shape::text, "an artwork's identifier"},
    {"W", Shape::number, "a width"},
    {"H", Shape::number, "a height"},
    {"SCALE", Shape::number, "a scale"},
    {"X", Shape::number, "a number for x"},
    {"Y", Shape::number, "a number for y"},
    {"X1", Shape::number, "a number for the first x"},
    {"Y1", Shape::number, "a number for the first y"},
    {"X2", Shape::number, "a number for the second x"},
    {"Y2", Shape::number, "a number for the second y"},
    {"EDGE", Shape::number, "a distance along the edge"},
    {"D", Shape::number, "a distance from the edge"},
    {"V", Shape::number, "a number"},
    {"S", Shape::duration, "a number of seconds"},
    {"N", Shape::count, "a whole number"},
    {"FRAMES", Shape::count, "a number of frames"},
    {"STYLE", Shape::count, "a style: 0, 1 or 2"},
    {"JSON", Shape::json, "a JSON value"},
    {"EXPR", Shape::value, "an expression"},
    {"VIEW", Shape::view, "a view"},
    {"EVENT", Shape::event, "an event"},
    {"DX", Shape::number, "a distance to the right"},
    {"DY", Shape::number, "a distance down"},
    {"VALUE", Shape::term, "a value"},
    {"ICONS", Shape::count, "a number of icons"},
    {"VARIABLE", Shape::name, "a name made of letters, digits and underscores"},
    {"OP", Shape::sign, "a comparison: == != < <= > >= or ~"},
    {"LEVEL", Shape::number, "a level from 0 to 1"},
}};

struct Element {
    std::string_view text;  // a literal, a choice, or a slot's name
    const Slot* slot = nullptr;
    bool optional = false;
    bool repeated = false;

    bool isChoice() const { return slot == nullptr && text.find('|') != std::string_view::npos; }
};

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::vector<Element> elementsOf(std::string_view pattern) {
    std::vector<Element> elements;
    bool optional = false;
    for (std::string_view part : split(pattern, ' ')) {
        Element element;
        if (part.starts_with('[')) {
            optional = true;
            part.remove_prefix(1);
        }
        if (part.ends_with(']')) part.remove_suffix(1);
        if (part.ends_with("...")) {
            element.repeated = true;
            part.remove_suffix(3);
        }
        element.text = part;
        element.optional = optional;
        const auto* slot = std::find_if(slots.begin(), slots.end(),
                                        [part](const Slot& each) { return each.name == part; });
        if (slot != slots.end()) element.slot = slot;
        elements.push_back(element);
    }
    return elements;
}

std::string oneOf(std::string_view words) {
    std::string text;
    const auto parts = split(words, '|');
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (index > 0) text += index + 1 == parts.size() ? " or " : ", ";
        text += parts[index];
    }
    return text;
}

void checkVersion(const Cursor& before, const std::string& text, const std::string& wanted) {
    bool digitExpected = true;
    for (const char character : text) {
        if (!isDigit(character) && (character != '.' || digitExpected))
            before.fail("expected " + wanted + ", got '" + text + "'");
        digitExpected = character == '.';
    }
    if (digitExpected) before.fail("expected " + wanted + ", got '" + text + "'");
}

// A number that stands in the line itself can be checked before anything runs.
void checkLiteral(const Cursor& before, Shape shape, const Expression& expression) {
    const auto* literal = std::get_if<NumberLiteral>(&expression.node);
    if (literal == nullptr || shape == Shape::number) return;
    const long double value = literal->number.value;
    if (value < 0) before.fail(expression.text + " is less than 0");
    if (shape == Shape::count && std::trunc(value) != value)
        before.fail(expression.text + " is no whole number");
}

JsonPointer readJson(Cursor& cursor, const std::string& wanted) {
    if (cursor.atEnd()) cursor.expected(wanted);
    const Cursor before = cursor;
    auto read = readJsonText(cursor.rest());
    if (auto* value = std::get_if<nlohmann::json>(&read))
        return std::make_shared<const nlohmann::json>(std::move(*value));
    const auto& mistake = std::get<JsonMistake>(read);
    throw SyntaxError(before.positionAt(before.offset() + mistake.offset), mistake.what);
}

// A name that only some values have, checked before anything runs.
void checkName(const Cursor& before, const std::optional<std::string>& mistake) {
    if (mistake) before.fail(*mistake);
}

class Reader {
  public:
    Reader(const Form& form, Cursor cursor, const std::set<std::string>& names)
        : form_(form), cursor_(cursor), names_(names), expressions_(cursor_, names) {
        statement_.form = &form;
    }

    std::variant<Statement, Misfit> read() {
        try {
            for (const Element& element : elementsOf(form_.pattern)) {
                // A tail is there as a whole or not at all.
                if (element.optional && !inTail_ && cursor_.atEnd()) break;
                inTail_ = element.optional;
                readElement(element);
            }
            if (!cursor_.atEnd()) cursor_.expected("the end of the line");
            return std::move(statement_);
        } catch (const SyntaxError& error) {
            return Misfit{error, certain_, cursor_, missingWord_};
        }
    }

  private:
    void readElement(const Element& element) {
        if (element.repeated) {
            statement_.arguments[std::string(element.text)];
            while (!cursor_.atEnd()) {
                readSlot(*element.slot);
                // Events are parted by commas.
                if (element.slot->shape != Shape::event || cursor_.atEnd()) continue;
                if (!cursor_.take(",")) cursor_.expected("','");
                if (cursor_.atEnd()) cursor_.expected("an event");
            }
            if (element.slot->shape == Shape::event &&
                statement_.arguments[std::string(element.text)].empty())
                cursor_.expected("an event");
        } else if (element.slot != nullptr) {
            readSlot(*element.slot);
        } else if (element.isChoice()) {
            statement_.choice = readWordOf(element.text, oneOf(element.text));
        } else {
            readLiteral(element.text);
        }
    }

    void readLiteral(std::string_view literal) {
        const bool sign = !isIdentifierStart(literal.front());
        if (!(sign ? cursor_.take(literal) : cursor_.takeWord(literal))) {
            missingWord_ = "'" + std::string(literal) + "'";
            cursor_.expected(missingWord_);
        }
        // `expect posted …` is meant as that, unless something was named `posted`.
        ++literals_;
        if (literals_ > 1 && !names_.contains(std::string(literal)) && certain_.empty())
            certain_ = beginningUpTo(literal);
    }

    // The form's pattern up to and with that word of it.
    std::string_view beginningUpTo(std::string_view literal) const {
        const auto end = static_cast<std::size_t>(literal.data() - form_.pattern.data());
        return form_.pattern.substr(0, end + literal.size());
    }

    std::string readWordOf(std::string_view words, const std::string& wanted) {
        Cursor before = cursor_;
        std::string word = cursor_.word(wanted);
        const auto parts = split(words, '|');
        if (std::find(parts.begin(), parts.end(), word) == parts.end()) before.expected(wanted);
        return word;
    }

    [[noreturn]] static void fail(Cursor before, const std::string& wanted) {
        before.expected(wanted);
    }

    void readSlot(const Slot& slot) {
        statement_.arguments[std::string(slot.name)].push_back(readArgument(slot));
    }

    Argument readArgument(const Slot& slot) {
        const std::string wanted(slot.wanted);
        cursor_.skipBlanks();
        const Cursor before = cursor_;
        switch (slot.shape) {
            case Shape::word: {
                std::string word = cursor_.word(wanted);
                // A value may be named `posted`, and `expect posted == 3` be about it.
                if (before.peek() != '"' && comparisonWritten(word)) fail(before, wanted);
                return word;
            }
            case Shape::oneOf:
                return readWordOf(slot.words, oneOf(slot.words));
            case Shape::version: {
                std::string version = cursor_.word(wanted);
                checkVersion(before, version, wanted);
                checkName(before, mistakeInSystem(version));
                return version;
            }
            case Shape::device: {
                std::string identifier = cursor_.word(wanted);
                checkName(before, mistakeInDevice(identifier));
                return identifier;
            }
            case Shape::day: {
                std::string day = cursor_.word(wanted);
                if (!dayFrom(day)) fail(before, wanted);
                return day;
            }
            case Shape::time: {
                std::string time = cursor_.word(wanted);
                if (!timeOfDayFrom(time)) fail(before, wanted);
                return time;
            }
            case Shape::text:
                return cursor_.string(wanted);
            case Shape::number:
            case Shape::duration:
            case Shape::count: {
                ExpressionPointer number = expressions_.numericTerm(wanted);
                checkLiteral(before, slot.shape, *number);
                return number;
            }
            case Shape::json:
                return readJson(cursor_, wanted);
            case Shape::value:
                return expressions_.expression();
            case Shape::term:
                return expressions_.term();
            case Shape::view:
                // A number is none, nor is a text.
                if (cursor_.numberComesNext() || cursor_.peek() == '"') fail(before, wanted);
                // Not a difference: `drag view -5 0 over 1` has three parts.
                return expressions_.term();
            case Shape::event:
                return readEvent();
            case Shape::name:
                return readName(wanted);
            case Shape::sign:
                break;
        }
        return readComparison(wanted);
    }

    // A word that may be followed by a comma without a blank.
    std::string readEventWord(const std::string& wanted) {
        cursor_.skipBlanks();
        if (cursor_.peek() == '"') return cursor_.string(wanted);
        const Cursor before = cursor_;
        const std::size_t start = cursor_.offset();
        cursor_.skipWord();
        std::string word = cursor_.textFrom(start);
        if (word.empty()) fail(before, wanted);
        return word;
    }

    Event readEvent() {
        using Kind = Event::Kind;
        constexpr std::array<std::pair<std::string_view, Kind>, 6> kinds{{
            {"called", Kind::called},
            {"posted", Kind::posted},
            {"darwin-posted", Kind::darwinPosted},
            {"haptic", Kind::haptic},
            {"launched", Kind::launched},
            {"logged", Kind::logged},
        }};
        const Cursor before = cursor_;
        const std::size_t start = cursor_.offset();
        const std::string word = readEventWord("an event");
        const auto* kind = std::find_if(kinds.begin(), kinds.end(),
                                        [&](const auto& each) { return each.first == word; });
        if (kind == kinds.end())
            fail(before, oneOf("called|posted|darwin-posted|haptic|launched|logged"));
        Event event{kind->second, {}};
        switch (event.kind) {
            case Kind::called:
                event.name = readEventWord("a class");
                event.selector = readEventWord("a selector");
                break;
            case Kind::haptic:
                event.name = readStyle();
                break;
            case Kind::logged:
                event.name = cursor_.string("a text");
                break;
            default:
                event.name = readEventWord("a name");
        }
        event.text = cursor_.textFrom(start);
        return event;
    }

    std::string readStyle() {
        cursor_.skipBlanks();
        const Cursor before = cursor_;
        std::string style = readEventWord("a style: 0, 1 or 2");
        if (style != "0" && style != "1" && style != "2") fail(before, "a style: 0, 1 or 2");
        return style;
    }

    std::string readName(const std::string& wanted) {
        Cursor before = cursor_;
        std::string name = cursor_.identifier();
        if (name.empty()) before.expected(wanted);
        if (isReservedName(name)) before.fail(name + " already means something else");
        return name;
    }

    Comparison readComparison(const std::string& wanted) {
        // The longer signs first, of which the shorter ones are beginnings.
        for (const std::string_view sign : {"==", "!=", "<=", ">=", "<", ">", "~"})
            if (cursor_.take(sign)) return *comparisonWritten(sign);
        cursor_.expected(wanted);
    }

    const Form& form_;
    Cursor cursor_;
    const std::set<std::string>& names_;
    ExpressionParser expressions_;
    Statement statement_;
    int literals_ = 0;
    std::string_view certain_;
    std::string missingWord_;
    bool inTail_ = false;
};

}  // namespace

std::string_view choicesOf(std::string_view slot) {
    const auto* found = std::find_if(slots.begin(), slots.end(),
                                     [slot](const Slot& each) { return each.name == slot; });
    return found == slots.end() ? std::string_view() : found->words;
}

std::variant<Statement, Misfit> readAs(const Form& form, Cursor cursor,
                                       const std::set<std::string>& names) {
    return Reader(form, cursor, names).read();
}

}  // namespace simulator::scenario
