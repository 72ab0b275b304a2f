// The haptic engine: counts the impacts that it was asked for.
#pragma once

namespace simulator {

// Styles: light 0, medium 1, heavy 2, soft 3, rigid 4.
long hapticCount(long style);
void clearHapticCounts();

void registerFeedback();

}  // namespace simulator
