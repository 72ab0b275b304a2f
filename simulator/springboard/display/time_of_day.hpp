// The time that the phone shows moves on with its clock, at every full minute.
#pragma once

namespace simulator {

void followTime();

// The clock was set by hand: its new time is shown, and told of as on a device.
void clockWasSet();

}  // namespace simulator
