#include "hooks/hook_recents.hpp"

#include "settings/device_profile.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

bool isSwitcherInFront() {
    Object window = SpringBoard::shared().send<"keyWindow", Object>();
    return window.isKindOfClass(classOf<SBMainSwitcherWindow>());
}

// An empty list changes nothing: the row that is there stays. The application side's page first.
void showRecents(SBRecentAppLayouts recents) {
    VNTIconsContainerViewController pages[] = {
        VNTToolBarController::shared().page<VNTIconsContainerViewController>(),
        VNTSBToolBarController::shared().page<VNTIconsContainerViewController>()};
    const bool newer = isSystem13OrLater();
    NSArray layouts = newer ? recents.allRecents() : recents.recents();
    if (layouts.count() == 0) return;
    for (VNTIconsContainerViewController page : pages) {
        if (newer) {
            page.layoutIconsWithAppLayouts(layouts);
        } else {
            page.layoutIconsWithMutableAppLayouts(layouts);
        }
    }
}

}  // namespace

void recentsValidate(System<void(Object)> system, Object, Object layouts) { system(layouts); }

void recentsSave(System<void()> system, Object self) {
    system();
    if (settingsLoaded || isSwitcherInFront()) return;
    if (!recentAppLayouts) recentAppLayouts = retained(self);
    showRecents(as<SBRecentAppLayouts>(self));
}

}  // namespace vantori
