#include "hooks/hook_table.hpp"

#include "hooks/control_center.hpp"
#include "hooks/gesture_zones.hpp"
#include "hooks/hook_dock.hpp"
#include "hooks/hook_now_playing.hpp"
#include "hooks/hook_recents.hpp"
#include "hooks/hook_scene_layout.hpp"
#include "hooks/hook_springboard.hpp"
#include "hooks/hook_volume.hpp"
#include "hooks/hook_welcome.hpp"
#include "hooks/pull_reachability.hpp"
#include "hooks/pull_tracking.hpp"
#include "pages/modules_hooks.hpp"

namespace vantori {

// clang-format off
std::span<const HookRow> welcomeHooks() {
    static const HookRow rows[] = {
        hook<"SBHomeScreenView", "didMoveToWindow", &homeScreenDidMove>(),
    };
    return rows;
}

std::span<const HookRow> springBoardHooks() {
    static const HookRow rows[] = {
        hook<"UIDevice", "setOrientation:animated:", &deviceSetOrientation>(),
        hook<"SBFluidSwitcherGestureExclusionTrapezoid", "shouldBeginGestureAtStartingPoint:velocity:bounds:", &shouldBeginGesture>(),
        hook<"SBFluidSwitcherGestureExclusionTrapezoid", "allowHorizontalSwipesOutsideTrapezoid", &allowHorizontalSwipes>(),
        hook<"SpringBoard", "_postActiveInterfaceOrientationChangedNotificationAnimated:", &postOrientationChanged>(),
        hook<"SpringBoard", "applicationDidFinishLaunching:", &didFinishLaunching>(),
        hook<"SpringBoard", "_nowPlayingAppDidChangeNotification:", &nowPlayingApplicationDidChange>(),
        hook<"SpringBoard", "setNowPlayingProcessPID:", &setNowPlayingProcess>(),
        hook<"SBMainDisplaySceneLayoutViewController", "viewDidLoad", &sceneLayoutDidLoad>(),
        hook<"SBMainDisplaySceneLayoutViewController", "viewWillLayoutSubviews", &sceneLayoutWillLayout>(),
        hook<"SBMainDisplaySceneLayoutViewController", "viewDidLayoutSubviews", &sceneLayoutDidLayout>(),
        hook<"SBFluidSwitcherGestureManager", "_shouldBeginReachabilityGesture:", &shouldBeginReachabilityGesture>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueBeganPulling:withDistance:andVelocity:", &inThreeParts<pullBegan>>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueUpdatedPulling:withDistance:andVelocity:", &inThreeParts<pullUpdated>>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueEndedPulling:withDistance:andVelocity:", &inThreeParts<pullEnded>>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueCanceledPulling:withDistance:andVelocity:", &inThreeParts<pullCancelled>>(),
        hook<"SBReachabilityManager", "reachabilityEnabled", &reachabilityEnabled>(),
        hook<"SBReachabilityManager", "toggleReachability", &toggleReachability>(),
        hook<"SBReachabilityManager", "_toggleReachabilityMode", &toggleReachability>(),
        hook<"SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:", &handleReachabilityPan>(),
        hook<"SBSwitcherContainerView", "didMoveToWindow", &switcherContainerDidMove>(),
        hook<"SBDockView", "didMoveToWindow", &dockDidChange>(),
        hook<"SBDockView", "layoutSubviews", &dockDidChange>(),
        hook<"SBRootFolderDockIconListView", "visibleIcons", &rootDockVisibleIcons>(),
        hook<"SBRootFolderDockIconListView", "setEditing:", &rootDockSetEditing>(),
        hook<"SBRootFolderDockIconListView", "didMoveToWindow", &rootDockDidMove>(),
        hook<"SBRootFolderDockIconListView", "layoutIconsNow", &rootDockLayoutIcons>(),
        hook<"SBFloatingDockIconListView", "visibleIcons", &floatingDockVisibleIcons>(),
        hook<"SBFloatingDockIconListView", "layoutIconsNow", &floatingDockDidChange>(),
        hook<"SBFloatingDockIconListView", "setEditing:", &floatingDockSetEditing>(),
        hook<"SBFloatingDockIconListView", "didMoveToWindow", &floatingDockDidChange>(),
        hook<"SBRecentAppLayouts", "_validateAndUpdateRecents:", &recentsValidate>(),
        hook<"SBRecentAppLayouts", "_saveRecents", &recentsSave>(),
        hook<"MediaControlsVolumeController", "volumeController:volumeValueDidChange:", &volumeValueDidChange>(),
        hook<"RPControlCenterModuleViewController", "setAvailable:", &moduleSetAvailable>(),
        hook<"RPControlCenterModuleViewController", "available", &moduleAvailable>(),
        hook<"SBMediaController", "_mediaRemoteNowPlayingApplicationIsPlayingDidChange:", &nowPlayingIsPlayingDidChange>(),
        hook<"SBLockScreenManager", "lockUIFromSource:withOptions:", &lockUI>(),
    };
    return rows;
}

std::span<const HookRow> controlCenterHooks() {
    static const HookRow rows[] = {
        hook<"SBControlCenterController", "_handleStatusBarPullDownGesture:", &statusBarPulledDown>(),
        hook<"SBControlCenterController", "grabberTongueBeganPulling:withDistance:andVelocity:", &inThreeParts<controlCenterPullBegan>>(),
        hook<"SBControlCenterController", "grabberTongueUpdatedPulling:withDistance:andVelocity:", &inThreeParts<controlCenterPullUpdated>>(),
        hook<"SBControlCenterController", "grabberTongueEndedPulling:withDistance:andVelocity:", &inThreeParts<controlCenterPullEnded>>(),
        hook<"SBControlCenterController", "grabberTongueCanceledPulling:withDistance:andVelocity:", &inThreeParts<controlCenterPullCancelled>>(),
    };
    return rows;
}

std::span<const LaterForm> laterSpringBoardForms() {
    static const LaterForm forms[] = {
        laterForm<"SBFluidSwitcherGestureManager", "grabberTongueBeganPulling:withDistance:andVelocity:", "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullBegan>>(),
        laterForm<"SBFluidSwitcherGestureManager", "grabberTongueUpdatedPulling:withDistance:andVelocity:", "grabberTongueUpdatedPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullUpdated>>(),
        laterForm<"SBFluidSwitcherGestureManager", "grabberTongueEndedPulling:withDistance:andVelocity:", "grabberTongueEndedPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullEnded>>(),
        laterForm<"SBFluidSwitcherGestureManager", "grabberTongueCanceledPulling:withDistance:andVelocity:", "grabberTongueCanceledPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullCancelled>>(),
    };
    return forms;
}

std::span<const LaterForm> laterControlCenterForms() {
    static const LaterForm forms[] = {
        laterForm<"SBControlCenterController", "grabberTongueBeganPulling:withDistance:andVelocity:", "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullBegan>>(),
        laterForm<"SBControlCenterController", "grabberTongueUpdatedPulling:withDistance:andVelocity:", "grabberTongueUpdatedPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullUpdated>>(),
        laterForm<"SBControlCenterController", "grabberTongueEndedPulling:withDistance:andVelocity:", "grabberTongueEndedPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullEnded>>(),
        laterForm<"SBControlCenterController", "grabberTongueCanceledPulling:withDistance:andVelocity:", "grabberTongueCanceledPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullCancelled>>(),
    };
    return forms;
}
// clang-format on

void install(std::span<const HookRow> rows) {
    for (const HookRow& row : rows) platform::install(row);
}

void install(std::span<const LaterForm> forms) {
    for (const LaterForm& form : forms) {
        Class cls = objc_getClass(form.row.className);
        const bool known = cls && class_getInstanceMethod(cls, form.earlier());
        const bool renamed = cls && class_getInstanceMethod(cls, form.row.selector());
        if (!known && renamed) platform::install(form.row);
    }
}

}  // namespace vantori
