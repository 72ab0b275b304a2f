// The machine identifier that uname reports ("iPhone10,3"), for the whole process.
#pragma once

#include <string>

namespace simulator {

void setMachine(std::string identifier);
const std::string& machine();

}  // namespace simulator
