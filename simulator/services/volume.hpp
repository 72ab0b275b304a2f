// The sound volumes: one for what plays and one for the ringer, from 0 to 1, and the route that the
// sound takes. AVSystemController answers from here; whoever changes a volume, the system tells all
// who listen, and the media controls besides when it is that of what plays.
#pragma once

#include <string>

namespace simulator {

// Someone else than the program that asks: the buttons' owner, another program.
void setMediaVolume(double level);
void setRingerVolume(double level);

// One of the two keys at the phone's side: a sixteenth of the volume in use.
void pressVolumeKey(bool louder);

// Whether there is such a route; nothing changes when there is none.
bool setAudioRoute(const std::string& name);

void registerVolume();

}  // namespace simulator
