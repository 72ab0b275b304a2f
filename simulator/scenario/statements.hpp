// All statements, as three tables: setting a phone up, driving it, and looking at it. The parser
// reads lines by them, the session carries lines out by them, and help is printed from them.
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/scenario/form.hpp"

namespace simulator::scenario {

std::span<const Form> setupStatements();
std::span<const Form> drivingStatements();
std::span<const Form> lookingStatements();

struct StatementGroup {
    std::string_view title;
    std::span<const Form> forms;
};
std::span<const StatementGroup> statementGroups();

// Every form with its help, a line each.
void printStatements(std::ostream& output);
// The forms of one statement; false when there is none.
bool printStatement(std::ostream& output, const std::string& keyword);
void printRow(std::ostream& output, std::string_view form, std::string_view help);

// Each once.
std::vector<std::string> keywords();

}  // namespace simulator::scenario
