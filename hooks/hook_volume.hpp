// What the library does when the media controls learn of a new volume.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void volumeValueDidChange(System<void(Object, float)> system, Object self, Object controller,
                          float value);

}  // namespace vantori
