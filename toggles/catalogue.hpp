// The toggles that there are, each bound to one setting of the system. What is shown follows the
// system at a refresh only: no toggle observes its setting.
#pragma once

#include "platform/system_settings.hpp"
#include "toggles/toggle.hpp"

namespace vantori {

#define VANTORI_TOGGLE(type)                                              \
    struct type : VNTDailyToggleViewController {                          \
        static constexpr FixedString name{#type};                         \
        using VNTDailyToggleViewController::VNTDailyToggleViewController; \
    }

VANTORI_TOGGLE(VNTAppearanceToggleViewController);
VANTORI_TOGGLE(VNTOrientationLockToggleViewController);
VANTORI_TOGGLE(VNTMuteToggleViewController);
VANTORI_TOGGLE(VNTLowPowerToggleViewController);
VANTORI_TOGGLE(VNTDNDToggleViewController);
VANTORI_TOGGLE(VNTFlashlightToggleViewController);
VANTORI_TOGGLE(VNTNightshiftToggleViewController);
VANTORI_TOGGLE(VNTTrueToneToggleViewController);

#undef VANTORI_TOGGLE

// Turns a tap into a message; its state stays what its creator made it.
struct VNTSwitchModuleToggleViewController : VNTDailyToggleViewController {
    static constexpr FixedString name{"VNTSwitchModuleToggleViewController"};
    using VNTDailyToggleViewController::VNTDailyToggleViewController;
    NSString onMessage() const { return send<"onMessage", NSString>(); }
    NSString offMessage() const { return send<"offMessage", NSString>(); }
    void setOnMessage(NSString message) const { send<"setOnMessage:">(message); }
    void setOffMessage(NSString message) const { send<"setOffMessage:">(message); }
};

// The base and all of these.
void registerToggles();

}  // namespace vantori
