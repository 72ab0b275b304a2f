// The applications of the phone: which are installed, which one is in front, how they open and
// close, and which launches were asked for.
#pragma once

#include <string>

#include "platform/springboard.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

// Empty when there is none of that identifier.
SBApplication applicationNamed(const std::string& identifier);
// Empty when the home screen is in front.
SBApplication frontMostApplication();
std::string frontMostIdentifier();

// Brings it to the front with an animation; one that is in front stays.
void openApplication(const std::string& identifier);
// Lets the application in front go back into its icon.
void goHome();

// A launch that someone asked for: counted, and unless it is suspended the application opens.
// False for an application that is not installed.
bool launchApplication(const std::string& identifier, bool suspended);
long launches(const std::string& identifier, bool suspended);
// Those that were to come to the front, of any application, since the phone was started.
long launchesSoFar();
void clearLaunches();

void registerApplications();

}  // namespace simulator
