// Keeps an application's process running, suspended, with a main scene, so that it can be shown in
// the toolbar's area instead of coming to the front. The view that shows the scene is the caller's.
#pragma once

#include "pages/application_hosting.hpp"

namespace vantori {

void registerApplicationHost();

}  // namespace vantori
