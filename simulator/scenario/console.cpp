// A prompt, a parser that remembers, and a session that stays open.
#include "simulator/scenario/console.hpp"

#include <string>

#include "simulator/scenario/completion.hpp"
#include "simulator/scenario/console_commands.hpp"

namespace simulator::scenario {
namespace {

constexpr const char* name = "console";

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

Console::Console(Phone& phone, const ConsoleOptions& options, std::ostream& output)
    : options_(options),
      output_(output),
      session_(phone, name, options.pictures, output),
      tell_([this](const std::string& line) { output_ << line << std::endl; }) {}

void Console::greet() {
    if (options_.prompt)
        output_ << "`help` lists the statements, `help STATEMENT` explains one, `quit` ends.\n";
}

void Console::prompt() {
    if (options_.prompt) output_ << "> " << std::flush;
}

bool Console::take(const std::string& text) {
    ++lines_;
    const std::string command = trimmed(text);
    if (command == "quit" || command == "exit") return false;
    try {
        if (takeConsoleCommand(session_.phone(), command, output_, tell_)) return true;
        if (const auto statement = parser_.line(text, lines_)) session_.run(*statement);
    } catch (const SyntaxError& error) {
        malformed_ = true;
        output_ << error.report(name) << std::endl;
    } catch (const PhoneError& error) {
        malformed_ = true;
        output_ << name << ":" << lines_ << ": " << command << ": " << error.what() << std::endl;
    }
    return true;
}

std::vector<std::string> Console::complete(const std::string& before,
                                           const std::string& word) const {
    return completions(before, word, parser_.names());
}

int Console::status() const { return malformed_ || session_.failed() > 0 ? 1 : 0; }

int runConsole(Phone& phone, const ConsoleOptions& options, std::istream& input,
               std::ostream& output) {
    Console console(phone, options, output);
    std::string text;
    console.greet();
    do console.prompt();
    while (std::getline(input, text) && console.take(text));
    return console.status();
}

}  // namespace simulator::scenario
