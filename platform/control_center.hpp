// Control Center's private classes, as far as the library sends to them. All may be missing, and a
// system may lack single messages of those that are there.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

// One round button with its symbols for off and on.
struct CCUIRoundButton : UIView {
    static constexpr FixedString name{"CCUIRoundButton"};
    using UIView::UIView;
    CGSize intrinsicContentSize() const { return send<"intrinsicContentSize", CGSize>(); }
    UIView glyphImageView() const { return send<"glyphImageView", UIView>(); }
    UIView selectedGlyphView() const { return send<"selectedGlyphView", UIView>(); }
};

// Holds a round button and, where there is room, its title.
struct CCUILabeledRoundButton : UIView {
    static constexpr FixedString name{"CCUILabeledRoundButton"};
    using UIView::UIView;
    CCUIRoundButton buttonView() const { return send<"buttonView", CCUIRoundButton>(); }
};

struct CCUIModuleInstanceManager : Object {
    static constexpr FixedString name{"CCUIModuleInstanceManager"};
    using Object::Object;
    static CCUIModuleInstanceManager shared() {
        return sendClass<CCUIModuleInstanceManager, "sharedInstance", CCUIModuleInstanceManager>();
    }
};

// The grid of modules.
struct CCUIModuleCollectionViewController : UIViewController {
    static constexpr FixedString name{"CCUIModuleCollectionViewController"};
    using UIViewController::UIViewController;
};

struct SBControlCenterController : Object {
    static constexpr FixedString name{"SBControlCenterController"};
    using Object::Object;
    static SBControlCenterController shared() {
        return sendClass<SBControlCenterController, "sharedInstance", SBControlCenterController>();
    }
    // Of the finger that pulls Control Center up, in the display's points.
    CGPoint presentGestureLocation() const {
        return send<"_presentGestureLocationInView", CGPoint>();
    }
};

// Screen recording.
struct RPControlCenterModuleViewController : UIViewController {
    static constexpr FixedString name{"RPControlCenterModuleViewController"};
    using UIViewController::UIViewController;
    void setAvailable(bool available) const { send<"setAvailable:">(available); }
};

}  // namespace platform
