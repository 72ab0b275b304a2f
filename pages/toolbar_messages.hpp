// What the pages ask of the two toolbars, which stand above the pages: by message, with
// no more of them than these messages.
#pragma once

#include "platform/uikit.hpp"

namespace vantori::toolbars {

using namespace platform;

inline Object applicationSide() {
    return Object(classObject(objc_getClass("VNTToolBarController")))
        .send<"sharedInstance", Object>();
}
inline Object springBoardSide() {
    return Object(classObject(objc_getClass("VNTSBToolBarController")))
        .send<"sharedInstance", Object>();
}

// The toolbar behind the application in front: its backdrop, and that it is closed.
inline UIView backdrop() { return applicationSide().send<"backgroundWallpaperView", UIView>(); }
inline void noteApplicationSideClosed() { applicationSide().send<"setIsEnabled:">(false); }

// Sends the toolbar of the window above everything away.
inline void dismissSpringBoardSide() { springBoardSide().send<"dismissVNTSB">(); }

}  // namespace vantori::toolbars
