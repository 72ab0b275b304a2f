// SpringBoard's private classes, as far as the library sends to them. All may be missing.
#pragma once

#include "platform/form.hpp"
#include "platform/uikit_controls.hpp"

namespace platform {

struct SBApplication : Object {
    static constexpr FixedString name{"SBApplication"};
    using Object::Object;
    NSString bundleIdentifier() const { return send<"bundleIdentifier", NSString>(); }
};

// The shared application of the process is SpringBoard itself.
struct SpringBoard : UIApplication {
    static constexpr FixedString name{"SpringBoard"};
    using UIApplication::UIApplication;
    static SpringBoard shared() {
        return Object(classObject(objc_getClass("UIApplication")))
            .send<"sharedApplication", SpringBoard>();
    }
    // Empty when the home screen is in front.
    SBApplication frontMostApplication() const {
        return send<"_accessibilityFrontMostApplication", SBApplication>();
    }
    long frontMostAppOrientation() const { return send<"_frontMostAppOrientation", long>(); }
    long activeInterfaceOrientation() const { return send<"activeInterfaceOrientation", long>(); }
    void addActiveOrientationObserver(Object observer) const {
        send<"addActiveOrientationObserver:">(observer);
    }
    bool isNowPlayingApplicationPlaying() const { return send<"isNowPlayingAppPlaying", bool>(); }
    // Answers whether the launch was accepted. Suspended: it does not come to the front.
    bool launchApplication(NSString identifier, bool suspended) const {
        return send<"launchApplicationWithIdentifier:suspended:", bool>(identifier, suspended);
    }
};

// Lays out the scenes of the applications in front on the phone's own screen.
struct SBMainDisplaySceneLayoutViewController : UIViewController {
    static constexpr FixedString name{"SBMainDisplaySceneLayoutViewController"};
    using UIViewController::UIViewController;
    static SBMainDisplaySceneLayoutViewController main() {
        return sendClass<SBMainDisplaySceneLayoutViewController,
                         "mainDisplaySceneLayoutViewController",
                         SBMainDisplaySceneLayoutViewController>();
    }
    UIView sceneContainerView() const { return send<"sceneContainerView", UIView>(); }
};

struct SBGrabberTongue : Object {
    static constexpr FixedString name{"SBGrabberTongue"};
    using Object::Object;
    UIView tongueContainer() const {
        return InstanceVariable<"SBGrabberTongue", "_tongueContainer">::of<UIView>(*this);
    }
    UIPanGestureRecognizer edgePullGestureRecognizer() const {
        return InstanceVariable<"SBGrabberTongue",
                                "_edgePullGestureRecognizer">::of<UIPanGestureRecognizer>(*this);
    }
};

struct SBFluidSwitcherGestureManager : Object {
    static constexpr FixedString name{"SBFluidSwitcherGestureManager"};
    using Object::Object;
    SBGrabberTongue deckGrabberTongue() const {
        return send<"deckGrabberTongue", SBGrabberTongue>();
    }
};

struct BSPlatform : Object {
    static constexpr FixedString name{"BSPlatform"};
    using Object::Object;
    static constexpr long noHomeButton = 2;
    static BSPlatform shared() { return sendClass<BSPlatform, "sharedInstance", BSPlatform>(); }
    long homeButtonType() const { return send<"homeButtonType", long>(); }
};

// A blurred copy of the wallpaper.
struct SBWallpaperEffectView : UIView {
    static constexpr FixedString name{"SBWallpaperEffectView"};
    using UIView::UIView;
    void setStyle(long style) const { send<"setStyle:">(style); }
    void setColorTintView(UIView view) const { send<"setColorTintView:">(view); }
};

struct UIBackdropView : UIView {
    static constexpr FixedString name{"_UIBackdropView"};
    using UIView::UIView;
    void setBlurRadius(double points) const { send<"setBlurRadius:">(points); }
    void setBlurRadiusSetOnce(bool once) const { send<"setBlurRadiusSetOnce:">(once); }
};

}  // namespace platform
