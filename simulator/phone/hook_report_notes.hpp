// On a real phone the library's hook report says of a row that nobody looked at this system, and which one
// the phone follows instead.
#pragma once

#include <string>

namespace simulator {

// The report with its notes: `, ? as on 13.5` at the end of such a row's line.
std::string withNotes(const std::string& report, int release);

// Has the report say so, once the library is loaded. Nothing on a phone that is not real.
void noteInHookReport();

}  // namespace simulator
