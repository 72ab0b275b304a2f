// How the services of other processes answer: once, in a later turn of the main thread, with what was
// asked for. A test makes them late, silent, talkative or failing, or lets them answer on a thread of
// their own, as those of a phone may.
#pragma once

#include <functional>

namespace simulator {

struct Manner {
    int times = 1;     // of each answer; 0: never
    double after = 0;  // seconds of the phone's time
    bool onOtherThread = false;
    bool failing = false;  // an error, or nothing, instead of an answer
};

// Of all services together.
Manner& serviceManner();

// Calls back in that manner, which is looked up now.
void answer(const std::function<void()>& call);

}  // namespace simulator
