// The groups of statements, and their help.
#include "simulator/scenario/statements.hpp"

#include <algorithm>
#include <array>
#include <set>

namespace simulator::scenario {
namespace {

const char* whenAllowed(Phase phase) { return phase == Phase::setup ? " (before boot)" : ""; }

}  // namespace

std::span<const StatementGroup> statementGroups() {
    static const std::array<StatementGroup, 3> groups{{
        {"Setting up", setupStatements()},
        {"Driving", drivingStatements()},
        {"Looking", lookingStatements()},
    }};
    return groups;
}

void printRow(std::ostream& output, std::string_view form, std::string_view help) {
    constexpr std::size_t column = 42;
    output << "  " << form;
    const std::size_t used = form.size() + 2;
    if (used >= column)
        output << '\n' << std::string(column, ' ');
    else
        output << std::string(column - used, ' ');
    output << help << '\n';
}

bool printStatement(std::ostream& output, const std::string& keyword) {
    bool found = false;
    for (const StatementGroup& group : statementGroups()) {
        for (const Form& form : group.forms) {
            if (form.keyword() != keyword) continue;
            printRow(output, form.pattern, std::string(form.help) + whenAllowed(form.phase));
            found = true;
        }
    }
    return found;
}

std::vector<std::string> keywords() {
    std::set<std::string> each;
    for (const StatementGroup& group : statementGroups())
        for (const Form& form : group.forms) each.emplace(form.keyword());
    return {each.begin(), each.end()};
}

void printStatements(std::ostream& output) {
    for (const StatementGroup& group : statementGroups()) {
        output << group.title << ":\n";
        for (const Form& form : group.forms)
            printRow(output, form.pattern, std::string(form.help) + whenAllowed(form.phase));
    }
    output
        << "Expressions:\n"
           "  number \"string\" YES NO nil W H NAME CLASS   [x selector]   [x word: y word: z]\n"
           "  {x, y}   {x, y, width, height}   TERM.field   presentation VIEW   key TERM \"NAME\"\n"
           "  @selector(NAME)   (EXPR)   + - * /\n";
}

}  // namespace simulator::scenario
