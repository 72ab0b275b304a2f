// What the music page tells the player to do, in the form that this system has; where it has none,
// nothing happens.
#pragma once

namespace vantori::player {

// By tracks: -1 to the previous, 1 to the next.
void changeTrack(int delta);
void play();
void pause();

}  // namespace vantori::player
