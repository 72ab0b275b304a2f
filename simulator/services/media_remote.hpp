// MediaRemote's C functions, by which a process of the system asks what plays, and its notifications.
#pragma once

namespace simulator {

// On a real phone: its clients look them up at run time.
void exportMediaRemote();

// How often it was asked what plays.
int questionsToMediaRemote();

}  // namespace simulator
