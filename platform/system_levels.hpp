// The system's controllers of sound volume and display brightness. Levels are 32-bit floats from 0
// to 1. All may be missing; what they read is then 0, and what is written is lost.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

struct AVSystemController : Object {
    static constexpr FixedString name{"AVSystemController"};
    using Object::Object;
    static AVSystemController shared() {
        return sendClass<AVSystemController, "sharedAVSystemController", AVSystemController>();
    }
    // Of the category in use.
    float activeCategoryVolume() const {
        float volume = 0;
        id category = nullptr;
        send<"getActiveCategoryVolume:andName:", bool>(&volume, &category);
        return volume;
    }
    void setActiveCategoryVolume(float volume) const {
        send<"setActiveCategoryVolumeTo:", bool>(volume);
    }
    NSString routeForCategory(NSString category) const {
        return send<"routeForCategory:", NSString>(category);
    }
};

// Control Center's brightness module; it tells its delegate, which it does not retain, of changes.
struct CCUIDisplayModuleViewController : UIViewController {
    static constexpr FixedString name{"CCUIDisplayModuleViewController"};
    using UIViewController::UIViewController;
    float currentBrightness() const { return send<"currentBrightness", float>(); }
    void setDelegate(Object delegate) const { send<"setDelegate:">(delegate); }
};

}  // namespace platform
