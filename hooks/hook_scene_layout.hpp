// The controller that lays out the scenes of applications: the toolbar is attached behind them, the
// connectivity buttons are set up with it, and the scene stays lifted while the toolbar is open.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void sceneLayoutDidLoad(System<void()> system, Object self);
void sceneLayoutWillLayout(System<void()> system, Object self);
void sceneLayoutDidLayout(System<void()> system, Object self);

// Adds the accessors of "vantoriController" to the class.
void addSceneLayoutAccessors();

}  // namespace vantori
