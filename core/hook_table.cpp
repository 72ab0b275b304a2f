#include "core/hook_table.hpp"

#include "core/control_center.hpp"
#include "core/gesture_zones.hpp"
#include "core/hook_scene_layout.hpp"
#include "core/hook_springboard.hpp"
#include "core/hook_volume.hpp"
#include "core/hook_welcome.hpp"
#include "core/pull_reachability.hpp"
#include "core/pull_tracking.hpp"

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
        hook<"SBMainDisplaySceneLayoutViewController", "viewDidLoad", &sceneLayoutDidLoad>(),
        hook<"SBMainDisplaySceneLayoutViewController", "viewWillLayoutSubviews", &sceneLayoutWillLayout>(),
        hook<"SBMainDisplaySceneLayoutViewController", "viewDidLayoutSubviews", &sceneLayoutDidLayout>(),
        hook<"SBFluidSwitcherGestureManager", "_shouldBeginReachabilityGesture:", &shouldBeginReachabilityGesture>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueBeganPulling:withDistance:andVelocity:", &pullBegan>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueUpdatedPulling:withDistance:andVelocity:", &pullUpdated>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueEndedPulling:withDistance:andVelocity:", &pullEnded>(),
        hook<"SBFluidSwitcherGestureManager", "grabberTongueCanceledPulling:withDistance:andVelocity:", &pullCancelled>(),
        hook<"SBReachabilityManager", "reachabilityEnabled", &reachabilityEnabled>(),
        hook<"SBReachabilityManager", "toggleReachability", &toggleReachability>(),
        hook<"SBReachabilityManager", "_toggleReachabilityMode", &toggleReachability>(),
        hook<"SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:", &handleReachabilityPan>(),
        hook<"SBSwitcherContainerView", "didMoveToWindow", &switcherContainerDidMove>(),
        hook<"MediaControlsVolumeController", "volumeController:volumeValueDidChange:", &volumeValueDidChange>(),
        hook<"SBLockScreenManager", "lockUIFromSource:withOptions:", &lockUI>(),
    };
    return rows;
}

std::span<const HookRow> controlCenterHooks() {
    static const HookRow rows[] = {
        hook<"SBControlCenterController", "_handleStatusBarPullDownGesture:", &statusBarPulledDown>(),
        hook<"SBControlCenterController", "grabberTongueBeganPulling:withDistance:andVelocity:", &controlCenterPullBegan>(),
        hook<"SBControlCenterController", "grabberTongueUpdatedPulling:withDistance:andVelocity:", &controlCenterPullUpdated>(),
        hook<"SBControlCenterController", "grabberTongueEndedPulling:withDistance:andVelocity:", &controlCenterPullEnded>(),
        hook<"SBControlCenterController", "grabberTongueCanceledPulling:withDistance:andVelocity:", &controlCenterPullCancelled>(),
    };
    return rows;
}
// clang-format on

void install(std::span<const HookRow> rows) {
    for (const HookRow& row : rows) platform::install(row);
}

}  // namespace vantori
