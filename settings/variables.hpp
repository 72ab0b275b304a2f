// The file-scope variables that the hooks and the controllers share: what was read of the settings,
// what is derived from it (lengths in points), and the state of the pull under way. The initial
// values hold until the first read.
#pragma once

#include "platform/ownership.hpp"

namespace vantori {

using namespace platform;

// Settings.
extern bool enabled;
extern bool enabledAtLaunch;  // copied back into enabled at every reload
extern bool replaceCC;
extern bool reachability;
extern int layoutDirection;  // 3 stacks the pages, 1 is the low strip
extern bool noCornerRadius;
extern bool tapToOpen;
extern bool alwaysSpringBoardStyle;
extern bool leftGestureEnabled;
extern bool middleGestureEnabled;
extern bool rightGestureEnabled;
extern bool settingsLoaded;

// Derived, in points; zero until first set.
extern double middleZoneWidth;
extern double leftZoneEnd;
extern double rightZoneStart;
extern double MAX_SIZE;       // height of the toolbar
extern double CORNER_RADIUS;  // of a lifted application

// The pull under way: at most one of the two is set.
extern bool liftingAppScene;
extern bool pullingSBToolbar;
extern bool shouldHideCCScrollView;

// Objects of SpringBoard that the dock and recents hooks remember; the pull asks them to refresh.
extern Strong<Object> dockIconListView;
extern Strong<Object> recentAppLayouts;

}  // namespace vantori
