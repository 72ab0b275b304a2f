// What would have ended the process: an exception that nobody caught. Exceptions that the system
// raises and catches itself are no crash. The first one is kept.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace simulator {

// Listens to -[NSException raise], so that an escaping exception can be named; once, at set-up.
void installCrashReport();

// Runs work at the top of the phone. False when something escaped from it: that is the crash.
bool guarded(const std::function<void()>& work);

// Name and reason of the exception that was raised last, caught or not; empty for none.
const std::string& lastRaised();

const std::optional<std::string>& crash();
void forgetCrash();

}  // namespace simulator
