// What this phone has of what its stand-ins can do. A phone that is not real has every name that is
// declared for all phones, whatever its system. A real one has what the systems of its version have,
// as far as the tables know; names that they do not list are the phone's own and always there. A name
// that is declared for real phones only is on those whose system has it.
#pragma once

#include <string>
#include <string_view>

#include "simulator/runtime/system_table.hpp"

namespace simulator {

enum class On { allPhones, realPhones };

// From here on the phone is a real one of that release. Before any stand-in is registered.
void makeReal(int release);
// The release of a real phone, 0 on another.
int realRelease();

bool has(std::string_view className, Kind kind, std::string_view name, On phones = On::allPhones);
// The class itself; a scenario may have taken it away on any phone.
bool hasClass(std::string_view className, On phones = On::allPhones);

}  // namespace simulator
