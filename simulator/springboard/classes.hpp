// Handles of SpringBoard's classes that only the phone itself uses. Those that the library uses too
// are in platform/springboard.hpp.
#pragma once

#include "platform/control_center.hpp"
#include "platform/now_playing.hpp"
#include "platform/springboard.hpp"
#include "platform/springboard_icons.hpp"
#include "simulator/uikit/classes.hpp"

namespace simulator {

#define VANTORI_CLASS(type, base)                 \
    struct type : base {                          \
        static constexpr FixedString name{#type}; \
        using base::base;                         \
    }

VANTORI_CLASS(SBApplicationController, Object);
VANTORI_CLASS(SBSceneLayoutViewController, UIViewController);
VANTORI_CLASS(SBApplicationSceneView, UIView);
VANTORI_CLASS(SBHomeScreenView, UIView);
VANTORI_CLASS(SBDockView, UIView);
VANTORI_CLASS(SBIconListView, UIView);
VANTORI_CLASS(SBRootIconListView, SBIconListView);
VANTORI_CLASS(SBDockIconListView, SBIconListView);
VANTORI_CLASS(SBRootFolderDockIconListView, SBDockIconListView);
VANTORI_CLASS(SBFloatingDockIconListView, SBDockIconListView);
VANTORI_CLASS(SBDockSuggestionsIconListView, SBFloatingDockIconListView);
VANTORI_CLASS(SBIconView, UIView);
VANTORI_CLASS(SBLeafIcon, SBIcon);
VANTORI_CLASS(SBApplicationIcon, SBLeafIcon);
VANTORI_CLASS(SBIconModel, Object);
VANTORI_CLASS(SBIconController, UIViewController);
VANTORI_CLASS(SBFluidSwitcherGestureExclusionTrapezoid, Object);
VANTORI_CLASS(SBReachabilityManager, Object);
VANTORI_CLASS(SBBarSwipeAffordanceView, UIView);
VANTORI_CLASS(SBSwitcherContainerView, UIView);
VANTORI_CLASS(SBRecentAppLayouts, Object);
VANTORI_CLASS(SBAppLayout, Object);
VANTORI_CLASS(SBDisplayItem, Object);
VANTORI_CLASS(SBLockScreenManager, Object);
VANTORI_CLASS(SBHomeScreenWindow, UIWindow);
VANTORI_CLASS(SBMainScreenWindow, UIWindow);
VANTORI_CLASS(SBMainSwitcherWindow, UIWindow);
VANTORI_CLASS(SBWallpaperWindow, UIWindow);
VANTORI_CLASS(SBCoverSheetWindow, UIWindow);
VANTORI_CLASS(SBControlCenterWindow, UIWindow);
VANTORI_CLASS(SBStatusBarWindow, UIWindow);
// A recogniser that the system itself drives: it answers what it was last told.
VANTORI_CLASS(SBSystemPanGestureRecognizer, UIPanGestureRecognizer);

#undef VANTORI_CLASS

}  // namespace simulator
