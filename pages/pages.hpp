// Every content page's class, for those who make them all.
#pragma once

#include "pages/applications_page.hpp"
#include "pages/connectivity_page.hpp"
#include "pages/module_round_button.hpp"
#include "pages/modules_page.hpp"
#include "pages/music_page.hpp"

namespace vantori {

void registerPages();

}  // namespace vantori
