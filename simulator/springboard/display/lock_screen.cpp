#include "simulator/springboard/display/lock_screen.hpp"

#include "simulator/springboard/control_center/control_center.hpp"
#include "simulator/springboard/display/windows.hpp"

namespace simulator {

namespace {

struct LockState {
    bool locked;
};

constexpr double fadingDuration = 0.3;

void fade(UIWindow cover, double alpha, BlockRef<void(bool)> completion) {
    UIView::animateWithSpring(fadingDuration, 0, 1, 0, 0, block([=] { cover.setAlpha(alpha); }),
                              completion);
}

SBLockScreenManager sharedInstance(Class) { return lockScreenManager(); }

void lockUI(SBLockScreenManager self, int, NSDictionary) {
    bool& locked = stateOf<LockState>(self).locked;
    if (locked) return;
    locked = true;
    dismissControlCenter(false);
    UIWindow cover = windows().coverSheet;
    cover.setAlpha(0);
    cover.setHidden(false);
    refreshWindows();
    fade(cover, 1, {});
}

void unlockUI(SBLockScreenManager self, int, NSDictionary) {
    bool& locked = stateOf<LockState>(self).locked;
    if (!locked) return;
    locked = false;
    UIWindow cover = windows().coverSheet;
    refreshWindows();
    fade(cover, 0, block<void(bool)>([cover](bool) {
             if (!isLocked()) cover.setHidden(true);
         }));
}

bool isUILocked(SBLockScreenManager self) { return stateOf<LockState>(self).locked; }

}  // namespace

SBLockScreenManager lockScreenManager() {
    static auto& shared = *new Strong<SBLockScreenManager>;
    if (!shared) shared = create<SBLockScreenManager>();
    return shared;
}

bool isLocked() {
    SBLockScreenManager manager = lockScreenManager();
    return manager && stateOf<LockState>(manager).locked;
}

void registerLockScreen() {
    standIn<SBLockScreenManager, Object, LockState>()
        .classMethod<"sharedInstance", &sharedInstance>()
        .method<"lockUIFromSource:withOptions:", &lockUI>()
        .method<"unlockUIFromSource:withOptions:", &unlockUI>()
        .method<"isUILocked", &isUILocked>();
}

}  // namespace simulator
