#include "hooks/hook_table.hpp"

#include <algorithm>

#include "hooks/control_center.hpp"
#include "hooks/gesture_zones.hpp"
#include "hooks/hook_dock.hpp"
#include "hooks/hook_now_playing.hpp"
#include "hooks/hook_recents.hpp"
#include "hooks/hook_scene_layout.hpp"
#include "hooks/hook_springboard.hpp"
#include "hooks/hook_switcher.hpp"
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

std::span<const OtherForm> otherSpringBoardForms() {
    static const OtherForm forms[] = {
        otherForm<"SBFluidSwitcherGestureManager", "grabberTongueBeganPulling:withDistance:andVelocity:", "SBFluidSwitcherGestureManager", "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullBegan>>(),
        otherForm<"SBFluidSwitcherGestureManager", "grabberTongueUpdatedPulling:withDistance:andVelocity:", "SBFluidSwitcherGestureManager", "grabberTongueUpdatedPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullUpdated>>(),
        otherForm<"SBFluidSwitcherGestureManager", "grabberTongueEndedPulling:withDistance:andVelocity:", "SBFluidSwitcherGestureManager", "grabberTongueEndedPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullEnded>>(),
        otherForm<"SBFluidSwitcherGestureManager", "grabberTongueCanceledPulling:withDistance:andVelocity:", "SBFluidSwitcherGestureManager", "grabberTongueCanceledPulling:withDistance:andVelocity:andGesture:", &inFourParts<pullCancelled>>(),
        otherForm<"SBReachabilityManager", "_toggleReachabilityMode", "SBReachabilityManager", "_toggleReachabilityModeWithRequestingObserver:", &toggleReachabilityFor>(),
        otherForm<"SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:", "SBReachabilityManager", "_activateReachability:", &reachabilitySwiped>(),
        otherForm<"SBBarSwipeAffordanceView", "_handleReachabilityPanGesture:", "SBFluidSwitcherGestureManager", "_activateReachability:", &reachabilitySwiped>(),
        otherForm<"SBSwitcherContainerView", "didMoveToWindow", "SBMainSwitcherViewController", "layoutStateTransitionCoordinator:transitionDidBeginWithTransitionContext:", &layoutTransitionBegan>(),
        otherForm<"SBSwitcherContainerView", "didMoveToWindow", "SBMainSwitcherViewController", "sceneLayoutController:didBeginLayoutStateTransitionWithContext:", &sceneTransitionBegan>(),
    };
    return forms;
}

std::span<const OtherForm> otherControlCenterForms() {
    static const OtherForm forms[] = {
        otherForm<"SBControlCenterController", "grabberTongueBeganPulling:withDistance:andVelocity:", "SBControlCenterController", "grabberTongueBeganPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullBegan>>(),
        otherForm<"SBControlCenterController", "grabberTongueUpdatedPulling:withDistance:andVelocity:", "SBControlCenterController", "grabberTongueUpdatedPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullUpdated>>(),
        otherForm<"SBControlCenterController", "grabberTongueEndedPulling:withDistance:andVelocity:", "SBControlCenterController", "grabberTongueEndedPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullEnded>>(),
        otherForm<"SBControlCenterController", "grabberTongueCanceledPulling:withDistance:andVelocity:", "SBControlCenterController", "grabberTongueCanceledPulling:withDistance:andVelocity:andGesture:", &inFourParts<controlCenterPullCancelled>>(),
    };
    return forms;
}
// clang-format on

void install(std::span<const HookRow> rows) {
    for (const HookRow& row : rows) platform::install(row);
}

namespace {

bool exists(const char* className, SEL message) {
    Class cls = objc_getClass(className);
    return cls && class_getInstanceMethod(cls, message);
}

bool standsForTheSame(const OtherForm& a, const OtherForm& b) {
    return a.requiredClass == b.requiredClass && a.required == b.required;
}

}  // namespace

void install(std::span<const OtherForm> forms) {
    for (std::size_t i = 0; i < forms.size(); ++i) {
        const OtherForm& form = forms[i];
        if (exists(form.requiredClass, form.required())) continue;
        if (!exists(form.row.className, form.row.selector())) continue;
        const bool taken = std::ranges::any_of(forms.first(i), [&](const OtherForm& preferred) {
            return standsForTheSame(preferred, form) && preferred.row.record->installed;
        });
        if (!taken) platform::install(form.row);
    }
}

}  // namespace vantori
