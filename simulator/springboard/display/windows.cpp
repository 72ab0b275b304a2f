#include "simulator/springboard/display/windows.hpp"

#include "simulator/hardware/display.hpp"
#include "simulator/springboard/applications/applications.hpp"
#include "simulator/springboard/applications/scene_layout.hpp"
#include "simulator/springboard/display/artwork.hpp"
#include "simulator/springboard/display/lock_screen.hpp"
#include "simulator/springboard/display/orientation.hpp"

namespace simulator {

namespace {

VANTORI_CLASS(SBHomeScreenWindow, UIWindow);
VANTORI_CLASS(SBMainScreenWindow, UIWindow);
VANTORI_CLASS(SBMainSwitcherWindow, UIWindow);
VANTORI_CLASS(SBWallpaperWindow, UIWindow);
VANTORI_CLASS(SBCoverSheetWindow, UIWindow);
VANTORI_CLASS(SBControlCenterWindow, UIWindow);
VANTORI_CLASS(SBStatusBarWindow, UIWindow);

constexpr double wallpaperLevel = -2;
constexpr double homeLevel = 0;
constexpr double scenesLevel = 1;
constexpr double statusBarLevel = 1000;
constexpr double controlCenterLevel = 1040;
constexpr double coverSheetLevel = 1050;

template <class T>
Strong<UIWindow> makeWindow(double level, bool takesTouches) {
    Strong<T> window = create<T, "initWithFrame:">(UIScreen::mainScreen().bounds());
    window.setWindowLevel(level);
    window.template send<"setUserInteractionEnabled:">(takesTouches);
    return window;
}

void show(UIWindow window) { window.setHidden(false); }

}  // namespace

Windows& windows() {
    static auto& all = *new Windows;
    return all;
}

void makeWindows() {
    Windows& all = windows();
    all.wallpaper = makeWindow<SBWallpaperWindow>(wallpaperLevel, false);
    all.home = makeWindow<SBHomeScreenWindow>(homeLevel, true);
    all.scenes = makeWindow<SBMainScreenWindow>(scenesLevel, true);
    all.statusBar = makeWindow<SBStatusBarWindow>(statusBarLevel, false);
    all.controlCenter = makeWindow<SBControlCenterWindow>(controlCenterLevel, true);
    all.coverSheet = makeWindow<SBCoverSheetWindow>(coverSheetLevel, true);
    show(all.wallpaper);
    all.home.makeKeyAndVisible();
    show(all.statusBar);
    refreshWindows();
}

void layWindows() {
    long orientation = activeOrientation();
    Windows& all = windows();
    for (UIWindow window :
         {UIWindow(all.wallpaper), UIWindow(all.home), UIWindow(all.scenes),
          UIWindow(all.statusBar), UIWindow(all.controlCenter), UIWindow(all.coverSheet)}) {
        if (window) layWindow(window, orientation);
    }
}

void refreshWindows() {
    Windows& all = windows();
    std::string front = frontMostIdentifier();
    bool white = isLocked() || wantsWhiteStatusBar(front);
    if (all.wallpaper) dressAsWallpaper(all.wallpaper);
    // An application's status bar is its scene's, and moves with it.
    auto parts = isLocked() || front.empty() ? StatusBarParts::all : StatusBarParts::indicatorOnly;
    if (all.statusBar) dressAsStatusBar(all.statusBar, parts, white);
    if (all.coverSheet && isLocked()) dressAsLockScreen(all.coverSheet);
    refreshScene();
}

void registerWindows() {
    standIn<SBWallpaperWindow, UIWindow>();
    standIn<SBHomeScreenWindow, UIWindow>();
    standIn<SBMainScreenWindow, UIWindow>();
    standIn<SBMainSwitcherWindow, UIWindow>();
    standIn<SBStatusBarWindow, UIWindow>();
    standIn<SBControlCenterWindow, UIWindow>();
    standIn<SBCoverSheetWindow, UIWindow>();
}

}  // namespace simulator
