// The SpringBoard class: the application object of the process.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

void registerSpringBoardApplication();

}  // namespace simulator
