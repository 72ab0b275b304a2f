#include "simulator/scenario/console_commands.hpp"

#include <algorithm>
#include <array>
#include <charconv>

#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

struct Request {
    Phone& phone;
    std::string argument;
    std::ostream& output;
    const std::function<void(const std::string&)>& tell;
};

void help(const Request& request) {
    if (request.argument.empty()) {
        printStatements(request.output);
        printConsoleCommands(request.output);
    } else if (!printStatement(request.output, request.argument)) {
        throw PhoneError("there is no statement '" + request.argument + "'" +
                         meant(request.argument, keywords()));
    }
}

void hooks(const Request& request) { request.output << request.phone.hooks(); }

void journal(const Request& request) {
    constexpr std::size_t usual = 30;
    std::size_t lines = usual;
    const std::string& text = request.argument;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), lines);
    if (!text.empty() && (error != std::errc() || end != text.data() + text.size()))
        throw PhoneError("expected a number of lines, got '" + text + "'");
    for (const std::string& line : request.phone.journal(lines)) request.output << line << '\n';
}

void watch(const Request& request) {
    const std::string& what = request.argument;
    if (what == "notifications")
        request.phone.watch(Phone::Watched::notifications, request.tell);
    else if (what == "calls")
        request.phone.watch(Phone::Watched::calls, request.tell);
    else if (what == "log")
        request.phone.watch(Phone::Watched::log, request.tell);
    else if (what == "off")
        request.phone.watch(Phone::Watched::log, {});
    else
        throw PhoneError("expected notifications, calls, log or off, got '" + what + "'");
}

void quit(const Request&) {}  // the console's own

struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view help;
    void (*run)(const Request&);
};

constexpr std::array<Command, 6> commands{{
    {"help", "[STATEMENT]", "lists the statements, or explains one", help},
    {"hooks", "", "each hook of the extension, with what became of it", hooks},
    {"journal", "[N]", "the latest N things that happened (30)", journal},
    {"watch", "notifications|calls|log|off", "tells of each as it happens", watch},
    {"quit", "", "ends the console", quit},
    {"exit", "", "the same", quit},
}};

constexpr std::array<std::string_view, commands.size()> names = [] {
    std::array<std::string_view, commands.size()> result{};
    for (std::size_t i = 0; i < commands.size(); ++i) result[i] = commands[i].name;
    return result;
}();

}  // namespace

std::span<const std::string_view> consoleCommands() { return names; }

void printConsoleCommands(std::ostream& output) {
    output << "In the console:\n";
    for (const Command& command : commands) {
        std::string form(command.name);
        if (!command.arguments.empty()) form += " " + std::string(command.arguments);
        printRow(output, form, command.help);
    }
}

bool takeConsoleCommand(Phone& phone, const std::string& line, std::ostream& output,
                        const std::function<void(const std::string&)>& tell) {
    const std::size_t end = std::min(line.find(' '), line.size());
    for (const Command& command : commands) {
        if (command.name != line.substr(0, end)) continue;
        const std::size_t rest = line.find_first_not_of(' ', end);
        const std::string argument = rest == std::string::npos ? "" : line.substr(rest);
        command.run({phone, argument, output, tell});
        return true;
    }
    return false;
}

}  // namespace simulator::scenario
