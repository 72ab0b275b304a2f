// Blocks between the phone and an arm64e library: their class and their functions are signed for the
// place where they lie, so that each copy is signed anew, as Apple's runtime of blocks does it.
#pragma once

namespace simulator::loader {

// From now on, blocks that the phone makes are signed, and those that it calls authenticated.
void signBlocks();

}  // namespace simulator::loader
