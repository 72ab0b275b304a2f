// A phone in a process of its own: when SpringBoard is started anew, the next one begins from nothing,
// and a phone that dies takes nobody along. The signals that end a program end the phone first, in its
// own way.
#pragma once

#include <functional>

namespace simulator::live {

inline constexpr int startAnew = 75;  // the status of a phone that wants that

// From here on, until the program ends.
void hearSignals();
// Whether one of them has come, to this process or to the phone's.
bool interrupted();

// Runs the phone, whose answer is its status, and waits for its end: answers that as waitpid() does. What
// it throws is told on the standard error; its status is 1 then.
int runApart(const std::function<int()>& phone);

}  // namespace simulator::live
