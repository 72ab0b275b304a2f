// GNUstep keeps defaults of its own in the home folder of whoever runs the program, and locks a file there
// to read them. A phone knows nothing of that folder: these defaults stay in memory.
#pragma once

namespace simulator {

// Once for each process, before anything asks for them.
void installUserDefaults();

}  // namespace simulator
