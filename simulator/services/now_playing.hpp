// The controller through which a view learns what is playing.
#pragma once

#include "simulator/uikit/classes.hpp"

namespace simulator {

// Whether the delegates are called on a thread of their own, as on a phone they may be.
void setNowPlayingOnOtherThread(bool other);

void registerNowPlaying();

}  // namespace simulator
