// A thread on which a framework calls its delegates, as those of a phone do. The main thread waits
// until the work is done, so that a run stays the same each time.
#pragma once

#include <functional>

namespace simulator {

// What escapes from the work is the phone's crash.
void onCallbackThread(const std::function<void()>& work);

}  // namespace simulator
