// The SpringBoard class: the application object of the process.
#pragma once

#include "platform/springboard.hpp"

namespace simulator {

void registerSpringBoardApplication();

// What it keeps in variables that others read by key.
void fillVariables(platform::SpringBoard springBoard);

}  // namespace simulator
