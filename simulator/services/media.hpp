// SpringBoard's media controller: the object that the rest of the system talks to.
#pragma once

namespace simulator {

void registerMedia();

}  // namespace simulator
