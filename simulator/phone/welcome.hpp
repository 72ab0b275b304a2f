// The welcome that the library shows once for each new version, before anything else can be tried on a
// new phone: whoever shows a phone says how to leave it.
#pragma once

namespace simulator {

inline constexpr const char* howToLeaveTheWelcome =
    "A new phone shows the welcome first: swipe to its last page and tap Back.";

// Its file is no sign of it: the library writes that as it puts the welcome on the screen.
bool welcomeIsShown();

}  // namespace simulator
