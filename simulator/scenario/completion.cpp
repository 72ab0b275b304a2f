// By the patterns of the statements: a word's place in the line is its place in the pattern, up to the
// first expression.
#include "simulator/scenario/completion.hpp"

#include <algorithm>

#include "simulator/scenario/console_commands.hpp"
#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

std::vector<std::string_view> wordsOf(std::string_view text, std::string_view blanks = " \t") {
    std::vector<std::string_view> words;
    for (;;) {
        const std::size_t start = text.find_first_not_of(blanks);
        if (start == std::string_view::npos) return words;
        text.remove_prefix(start);
        const std::size_t end = std::min(text.find_first_of(blanks), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

bool isSlot(std::string_view element) {
    return element.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.") ==
           std::string_view::npos;
}

bool isExpression(std::string_view element) {
    return element == "EXPR" || element == "VIEW" || element == "VALUE";
}

std::string_view plain(std::string_view element) {
    if (element.starts_with('[')) element.remove_prefix(1);
    if (element.ends_with(']')) element.remove_suffix(1);
    if (element.ends_with("...")) element.remove_suffix(3);
    return element;
}

class Completer {
  public:
    Completer(std::string_view before, std::string_view word, const std::set<std::string>& names)
        : before_(before), word_(word), names_(names) {}

    std::vector<std::string> complete() {
        const auto words = wordsOf(before_);
        if (words.empty()) {
            for (const std::string_view command : consoleCommands()) add(command);
            everyForm([&](const Form& form) { add(form.keyword()); });
        } else if (insideMessage()) {
            addInMessage();
        } else if (words.front() == "help" && words.size() == 1) {
            everyForm([&](const Form& form) { add(form.keyword()); });
        } else {
            everyForm([&](const Form& form) { addNext(form, words); });
            addCommandWords(words);
        }
        return {found_.begin(), found_.end()};
    }

  private:
    template <class Visitor>
    static void everyForm(Visitor visit) {
        for (const StatementGroup& group : statementGroups())
            for (const Form& form : group.forms) visit(form);
    }

    void add(std::string_view candidate) {
        if (candidate.starts_with(word_)) found_.emplace(candidate);
    }
    void addAll(const std::vector<std::string>& candidates) {
        for (const std::string& each : candidates) add(each);
    }
    void addAlternatives(std::string_view words) {
        while (!words.empty()) {
            const std::size_t end = std::min(words.find('|'), words.size());
            add(words.substr(0, end));
            words.remove_prefix(std::min(end + 1, words.size()));
        }
    }

    bool insideMessage() const {
        return std::count(before_.begin(), before_.end(), '[') >
               std::count(before_.begin(), before_.end(), ']');
    }

    // [Class sel…  : the class's methods; otherwise what can be sent to.
    void addInMessage() {
        const std::string_view rest = before_.substr(before_.rfind('[') + 1);
        const auto words = wordsOf(rest);
        if (words.empty()) return addValues();
        if (words.size() == 1) addAll(knownSelectors(std::string(words.front())));
        if (words.size() > 1) addValues();
    }

    void addValues() {
        for (const std::string& name : names_) add(name);
        addAll(knownClasses());
    }

    void addNext(const Form& form, const std::vector<std::string_view>& words) {
        const auto elements = wordsOf(form.pattern, " ");
        std::size_t place = 0;
        for (; place < words.size(); ++place) {
            if (place >= elements.size()) return;
            const std::string_view element = plain(elements[place]);
            if (isExpression(element)) return addExpressionWords(elements, place);
            const bool choice = element.find('|') != std::string_view::npos;
            if (!isSlot(element) && !choice && element != words[place]) return;
        }
        if (place < elements.size()) addElement(plain(elements[place]), words);
    }

    // Behind the start of an expression: its own words, or the word that ends it.
    void addExpressionWords(const std::vector<std::string_view>& elements, std::size_t place) {
        addValues();
        for (++place; place < elements.size(); ++place)
            if (const auto element = plain(elements[place]); !isSlot(element)) return add(element);
    }

    void addElement(std::string_view element, const std::vector<std::string_view>& words) {
        if (element.find('|') != std::string_view::npos) return addAlternatives(element);
        if (!isSlot(element)) return add(element);
        if (element == "IDENT") return addAll(knownDevices());
        if (element == "KEY") return addAll(knownSettings());
        if (element == "BUNDLE") return addAll(knownBundles());
        if (element == "CLASS") return addAll(knownClasses());
        if (element == "SELECTOR") return addAll(knownSelectors(std::string(words.back())));
        if (const auto choices = choicesOf(element); !choices.empty())
            return addAlternatives(choices);
        if (isExpression(element)) addValues();
    }

    void addCommandWords(const std::vector<std::string_view>& words) {
        if (words.front() == "watch" && words.size() == 1)
            for (const std::string_view each : {"notifications", "calls", "log", "off"}) add(each);
    }

    std::string_view before_;
    std::string_view word_;
    const std::set<std::string>& names_;
    std::set<std::string> found_;
};

}  // namespace

std::vector<std::string> completions(std::string_view before, std::string_view word,
                                     const std::set<std::string>& names) {
    return Completer(before, word, names).complete();
}

}  // namespace simulator::scenario
