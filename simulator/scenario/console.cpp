// A prompt, a parser that remembers, and a session that stays open.
#include "simulator/scenario/console.hpp"

#include <string>

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

constexpr const char* name = "console";

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

int runConsole(Phone& phone, const ConsoleOptions& options, std::istream& input,
               std::ostream& output) {
    Session session(phone, name, options.pictures, output);
    Parser parser;
    bool malformed = false;
    std::string text;
    if (options.prompt) output << "`help` lists the statements, `quit` ends.\n";
    for (int number = 1;; ++number) {
        if (options.prompt) output << "> " << std::flush;
        if (!std::getline(input, text)) break;
        const std::string command = trimmed(text);
        if (command == "quit" || command == "exit") break;
        if (command == "help") {
            printStatements(output);
            continue;
        }
        try {
            if (const auto statement = parser.line(text, number)) session.run(*statement);
        } catch (const SyntaxError& error) {
            malformed = true;
            output << error.report(name) << std::endl;
        }
    }
    return malformed || session.failed() > 0 ? 1 : 0;
}

}  // namespace simulator::scenario
