// Turning the flashlight on and off, in the form that this system has.
#pragma once

#include "platform/system_settings.hpp"

namespace vantori {

using namespace platform;

// Nothing happens without a controller.
void turnFlashlight(SBUIFlashlightController controller, bool on);

}  // namespace vantori
