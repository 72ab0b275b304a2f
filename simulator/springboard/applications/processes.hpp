// The processes of applications and their main scenes, as the system's process manager keeps them.
#pragma once

#include <string>

#include "simulator/uikit/classes.hpp"

namespace simulator {

// From which creation on (1 is the first) the application's process has a main scene.
void setSceneAfter(const std::string& identifier, int creation);
// How often its process has been asked for.
int processCreations(const std::string& identifier);

void registerProcesses();

}  // namespace simulator
