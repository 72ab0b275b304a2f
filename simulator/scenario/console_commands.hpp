// What the console understands besides the statements of a scenario: `help`, `journal 20`, …
#pragma once

#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

std::span<const std::string_view> consoleCommands();
void printConsoleCommands(std::ostream& output);

// Carries the line out when it is a command other than `quit` and `exit`; false when it is none.
// `tell` is for what happens later, by itself. Throws PhoneError for what cannot be done.
bool takeConsoleCommand(Phone& phone, const std::string& line, std::ostream& output,
                        const std::function<void(const std::string&)>& tell);

}  // namespace simulator::scenario
