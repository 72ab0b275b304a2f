// SpringBoard's side of what plays: the controller that takes commands, and SpringBoard's reports of
// the application that plays.
#pragma once

namespace simulator {

void registerMedia();

}  // namespace simulator
