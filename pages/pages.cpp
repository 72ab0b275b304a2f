#include "pages/pages.hpp"

namespace vantori {

void registerPages() {
    registerConnectivityPage();
    registerMusicPage();
    registerApplicationsPage();
    registerModulesPage();
    registerModuleRoundButton();
}

}  // namespace vantori
