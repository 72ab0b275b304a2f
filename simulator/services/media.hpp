// SpringBoard's media controller and the volume controller of Control Center's media module: the
// objects that the rest of the system talks to.
#pragma once

namespace simulator {

void registerMedia();

}  // namespace simulator
