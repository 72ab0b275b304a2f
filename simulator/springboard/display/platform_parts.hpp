// Small parts of the system: what kind of home button there is, and the blurred wallpaper behind
// SpringBoard's own panels.
#pragma once

namespace simulator {

void registerPlatformParts();

}  // namespace simulator
