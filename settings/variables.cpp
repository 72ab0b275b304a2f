#include "settings/variables.hpp"

namespace vantori {

bool enabled = true;
bool enabledAtLaunch = true;
bool replaceCC = true;
bool reachability = false;
int layoutDirection = 3;
bool noCornerRadius = false;
bool tapToOpen = true;
bool alwaysSpringBoardStyle = true;
bool leftGestureEnabled = true;
bool middleGestureEnabled = false;
bool rightGestureEnabled = false;
bool settingsLoaded = false;

double middleZoneWidth = 0;
double leftZoneEnd = 0;
double rightZoneStart = 0;
double MAX_SIZE = 0;
double CORNER_RADIUS = 0;

bool liftingAppScene = false;
bool pullingSBToolbar = false;
bool shouldHideCCScrollView = false;

Strong<Object> dockIconListView;
Strong<Object> recentAppLayouts;

}  // namespace vantori
