// The groups of statements, and their help.
#include "simulator/scenario/statements.hpp"

#include <algorithm>
#include <array>
#include <iomanip>
#include <string>

namespace simulator::scenario {
namespace {

std::string_view whenAllowed(Phase phase) { return phase == Phase::setup ? " (before boot)" : ""; }

}  // namespace

std::span<const StatementGroup> statementGroups() {
    static const std::array<StatementGroup, 3> groups{{
        {"Setting up", setupStatements()},
        {"Driving", drivingStatements()},
        {"Looking", lookingStatements()},
    }};
    return groups;
}

void printStatements(std::ostream& output) {
    constexpr std::size_t column = 42;
    for (const StatementGroup& group : statementGroups()) {
        output << group.title << ":\n";
        for (const Form& form : group.forms) {
            output << "  " << form.pattern;
            const std::size_t used = form.pattern.size() + 2;
            if (used >= column)
                output << '\n' << std::string(column, ' ');
            else
                output << std::string(column - used, ' ');
            output << form.help << whenAllowed(form.phase) << '\n';
        }
    }
    output
        << "Expressions:\n"
           "  number \"string\" YES NO nil W H NAME CLASS   [x selector]   [x word: y word: z]\n"
           "  {x, y}   {x, y, width, height}   TERM.field   presentation VIEW   key TERM \"NAME\"\n"
           "  @selector(NAME)   (EXPR)   + - * /\n";
}

}  // namespace simulator::scenario
