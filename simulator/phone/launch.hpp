// Switching the phone on: its classes come to exist, the extension is loaded, then SpringBoard
// launches.
#pragma once

namespace simulator {

// What Foundation and the runtime lack or do otherwise; once for each process, before anything else.
void prepareProcess();
// The same, and what every phone does first besides: for a process whose children are phones.
void warmUp();
void registerSpringBoard();

enum class Extension { load, leaveOut };
// Throws std::runtime_error when the extension does not load.
void launchPhone(Extension extension);

// Lets time pass until nothing moves, at most so many seconds.
void settle(double atMost);

}  // namespace simulator
