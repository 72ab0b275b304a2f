// What the music page's buttons show and do: the picture of play or pause, the spring under a finger,
// the commands to the player, and opening the application that plays.
#pragma once

#include "pages/music_page.hpp"

namespace vantori {

// The middle button shows pause while something plays, else play.
void showPlaying(VNTMediaPlayerViewController page, bool playing);
// The same as the now-playing controller has it by then, in the next turn of the main queue.
void showPlayingLater(VNTMediaPlayerViewController page);

// Pictures and targets of the buttons.
void wireButtons(VNTMediaPlayerViewController page);

// A finger is on the button: it shrinks to half its size.
void shrink(VNTMediaPlayerViewController page, UIView button);
// The finger has left, wherever it was: the button springs back, then the command goes out.
void previousReleased(VNTMediaPlayerViewController page, UIView button);
void playReleased(VNTMediaPlayerViewController page, UIView button);
void nextReleased(VNTMediaPlayerViewController page, UIView button);

// Brings the application that plays to the front and puts the toolbar's lift of it back. Nothing
// happens while nothing plays.
void openNowPlayingApplication(VNTMediaPlayerViewController page);

}  // namespace vantori
