// The text of the exception that was raised last. C++ can catch a raised NSException but not look
// into it, so the name and reason are noted when it is raised.
#pragma once

#include <string>

namespace simulator::scenario {

// From now on every NSException that is raised is noted.
void watchExceptions();

// "NAME: REASON" of the latest since the last call, or a text that says that nothing is known.
std::string takeRaised();

}  // namespace simulator::scenario
