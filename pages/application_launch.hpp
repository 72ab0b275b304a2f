// What a tap on an icon of the applications page does.
#pragma once

#include "pages/applications_page.hpp"

namespace vantori {

// Lowers the application in front with the shared spring, which opens the tapped one when it has
// finished; without waiting, sends the toolbar away and says so. An interrupted spring opens nothing.
void launchTapped(VNTIconsContainerViewController self, UIView tapped);

}  // namespace vantori
