#include "hooks/hook_dock.hpp"

#include "settings/device_profile.hpp"
#include "settings/variables.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori {

namespace {

VNTIconsContainerViewController springBoardPage() {
    return VNTSBToolBarController::shared().page<VNTIconsContainerViewController>();
}

VNTIconsContainerViewController applicationPage() {
    return VNTToolBarController::shared().page<VNTIconsContainerViewController>();
}

void handOver(VNTIconsContainerViewController page, NSArray icons, CGSize size) {
    page.setIcons(adopted(icons.send<"mutableCopy", NSMutableArray>()));
    page.layoutIconsWithSize(size.width);
}

// The SpringBoard side's page first.
void refreshPages(SBIconListView list) {
    const bool newer = isSystem13OrLater();
    NSArray icons = newer ? list.visibleIcons() : list.icons();
    const CGSize size = newer ? list.alignmentIconSize() : list.defaultIconSize();
    handOver(springBoardPage(), icons, size);
    handOver(applicationPage(), icons, size);
}

// Only the SpringBoard side's page, and only while it has none.
void handOverFirstIcons(SBIconListView list, NSArray icons) {
    VNTIconsContainerViewController page = springBoardPage();
    if (!page.icons()) handOver(page, icons, list.alignmentIconSize());
}

bool isFeedingFloatingDock(Object list) {
    return settingsLoaded && !list.isKindOfClass(objc_getClass("SBDockSuggestionsIconListView"));
}

}  // namespace

void dockDidChange(System<void()> system, Object self) {
    system();
    SBIconListView list = as<SBDockView>(self).dockListView();
    list.layoutIconsNow();
    springBoardPage().layoutIconsWithSize(list.alignmentIconSize().width);
}

Object rootDockVisibleIcons(System<Object()> system, Object self) {
    NSArray icons = as<NSArray>(system());
    handOverFirstIcons(as<SBIconListView>(self), icons);
    return icons;
}

// Unlike its neighbours it does not ask whether the settings are loaded. Deliberate.
void rootDockSetEditing(System<void(bool)> system, Object self, bool editing) {
    system(editing);
    refreshPages(as<SBIconListView>(self));
}

void rootDockDidMove(System<void()> system, Object self) {
    system();
    if (settingsLoaded) dockIconListView = retained(self);
}

void rootDockLayoutIcons(System<void()> system, Object self) {
    system();
    if (settingsLoaded) refreshPages(as<SBIconListView>(self));
}

Object floatingDockVisibleIcons(System<Object()> system, Object self) {
    NSArray icons = as<NSArray>(system());
    if (isFeedingFloatingDock(self)) handOverFirstIcons(as<SBIconListView>(self), icons);
    return icons;
}

void floatingDockSetEditing(System<void(bool)> system, Object self, bool editing) {
    system(editing);
    if (isFeedingFloatingDock(self)) refreshPages(as<SBIconListView>(self));
}

void floatingDockDidChange(System<void()> system, Object self) {
    system();
    if (isFeedingFloatingDock(self)) refreshPages(as<SBIconListView>(self));
}

}  // namespace vantori
