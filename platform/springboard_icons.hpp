// SpringBoard's private classes around icons, the dock, the recent applications and their
// processes, as far as the library sends to them. All may be missing.
#pragma once

#include "platform/encoding.hpp"
#include "platform/form.hpp"
#include "platform/springboard.hpp"
#include "platform/uikit_controls.hpp"

// How an icon is to be drawn, as it travels to generateIconImageWithInfo: (points, pixels for
// a point, points).
struct SBIconImageInfo {
    CGSize size;
    double scale;
    double continuousCornerRadius;
};

template <>
struct platform::TypeCode<SBIconImageInfo> {
    static constexpr FixedString value{"{SBIconImageInfo={CGSize=dd}dd}"};
};

namespace platform {

struct SBIcon : Object {
    static constexpr FixedString name{"SBIcon"};
    using Object::Object;
    NSString applicationBundleId() const { return send<"applicationBundleID", NSString>(); }
    // Up to system 12.
    UIImage generateIconImage(int format) const {
        return send<"generateIconImage:", UIImage>(format);
    }
    // From system 13 on.
    UIImage generateIconImageWithInfo(SBIconImageInfo info) const {
        return send<"generateIconImageWithInfo:", UIImage>(info);
    }
};

struct SBIconModel : Object {
    static constexpr FixedString name{"SBIconModel"};
    using Object::Object;
    // Empty for an application that is not installed.
    SBIcon expectedIcon(NSString identifier) const {
        return send<"expectedIconForDisplayIdentifier:", SBIcon>(identifier);
    }
};

struct SBIconController : UIViewController {
    static constexpr FixedString name{"SBIconController"};
    using UIViewController::UIViewController;
    static SBIconController shared() {
        return sendClass<SBIconController, "sharedInstance", SBIconController>();
    }
    SBIconModel model() const { return send<"model", SBIconModel>(); }
};

// The lists of the dock among them.
struct SBIconListView : UIView {
    static constexpr FixedString name{"SBIconListView"};
    using UIView::UIView;
    NSArray icons() const { return send<"icons", NSArray>(); }
    NSArray visibleIcons() const { return send<"visibleIcons", NSArray>(); }
    CGSize defaultIconSize() const { return sendIfAnswered<"defaultIconSize", CGSize>(); }
    CGSize alignmentIconSize() const { return send<"alignmentIconSize", CGSize>(); }
    void layoutIconsNow() const { send<"layoutIconsNow">(); }
};

struct SBDockView : UIView {
    static constexpr FixedString name{"SBDockView"};
    using UIView::UIView;
    SBIconListView dockListView() const { return send<"dockListView", SBIconListView>(); }
};

struct SBDisplayItem : Object {
    static constexpr FixedString name{"SBDisplayItem"};
    using Object::Object;
    NSString displayIdentifier() const { return sendIfAnswered<"displayIdentifier", NSString>(); }
    NSString bundleIdentifier() const { return sendIfAnswered<"bundleIdentifier", NSString>(); }
};

// What the application switcher keeps of one card: display items by the role that they play in it.
struct SBAppLayout : Object {
    static constexpr FixedString name{"SBAppLayout"};
    using Object::Object;
    static constexpr long primaryRole = 1;
};

struct SBRecentAppLayouts : Object {
    static constexpr FixedString name{"SBRecentAppLayouts"};
    using Object::Object;
    // From system 13 on, and up to system 12.
    NSArray allRecents() const {
        return InstanceVariable<"SBRecentAppLayouts", "_allRecents">::of<NSArray>(*this);
    }
    NSArray recents() const {
        return InstanceVariable<"SBRecentAppLayouts", "_recents">::of<NSArray>(*this);
    }
};

// The window of the application switcher.
struct SBMainSwitcherWindow : UIWindow {
    static constexpr FixedString name{"SBMainSwitcherWindow"};
    using UIWindow::UIWindow;
};

struct SBApplicationController : Object {
    static constexpr FixedString name{"SBApplicationController"};
    using Object::Object;
    static SBApplicationController shared() {
        return sendClass<SBApplicationController, "sharedInstance", SBApplicationController>();
    }
    SBApplication application(NSString identifier) const {
        return send<"applicationWithBundleIdentifier:", SBApplication>(identifier);
    }
};

struct FBApplicationProcess : Object {
    static constexpr FixedString name{"FBApplicationProcess"};
    using Object::Object;
    // Empty until the application has a scene.
    Object mainScene() const { return send<"mainScene", Object>(); }
};

struct FBProcessManager : Object {
    static constexpr FixedString name{"FBProcessManager"};
    using Object::Object;
    static FBProcessManager shared() {
        return sendClass<FBProcessManager, "sharedInstance", FBProcessManager>();
    }
    FBApplicationProcess createProcess(NSString identifier) const {
        return send<"createApplicationProcessForBundleID:", FBApplicationProcess>(identifier);
    }
};

struct FBSceneHostWrapperView : UIView {
    static constexpr FixedString name{"FBSceneHostWrapperView"};
    using UIView::UIView;
};

}  // namespace platform
