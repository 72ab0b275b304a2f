// What SpringBoard reports of the application that plays, passed on as notifications of our own: a
// change of the application refreshes the values that pages show, a change of the play state the
// music page's button. Posted on the thread that SpringBoard calls from.
#pragma once

#include "platform/hook.hpp"

namespace vantori {

using namespace platform;

void nowPlayingApplicationDidChange(System<void(Object)> system, Object self, Object notification);
void setNowPlayingProcess(System<void(int)> system, Object self, int process);
void nowPlayingIsPlayingDidChange(System<void(Object)> system, Object self, Object notification);

}  // namespace vantori
