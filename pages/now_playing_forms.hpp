// Where the music page learns what plays: MPUNowPlayingController, or on systems without it an object of
// ours that answers the same messages.
#pragma once

#include "platform/now_playing.hpp"

namespace vantori {

using namespace platform;

// A new source; empty where this system has none that is known.
Strong<MPUNowPlayingController> createNowPlayingSource();

}  // namespace vantori
