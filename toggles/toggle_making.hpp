// The toggles as the everyday page and the panels make them: each with its glyph and the names of its
// states, on before off.
#pragma once

#include "toggles/catalogue.hpp"

namespace vantori {

// The names of this package are inverted with respect to the modes, deliberately.
inline auto createAppearanceToggle() {
    return createPackageToggle<VNTAppearanceToggleViewController>(
        "/System/Library/ControlCenter/Bundles/AppearanceModule.bundle/StyleMode.ca"_ns, "light"_ns,
        "dark"_ns);
}

inline auto createOrientationLockToggle() {
    return createPackageToggle<VNTOrientationLockToggleViewController>(
        "/System/Library/ControlCenter/Bundles/OrientationLockModule.bundle/OrientationLock.ca"_ns,
        "locked"_ns, "unlocked"_ns);
}

inline auto createMuteToggle() {
    return createPackageToggle<VNTMuteToggleViewController>(
        "/System/Library/ControlCenter/Bundles/MuteModule.bundle/Mute.ca"_ns, "silent"_ns,
        "ringer"_ns);
}

inline auto createLowPowerToggle() {
    return createPackageToggle<VNTLowPowerToggleViewController>(
        "/System/Library/ControlCenter/Bundles/LowPowerModule.bundle/LowPower.ca"_ns, "enabled"_ns,
        "*"_ns);
}

inline auto createDoNotDisturbToggle() {
    return createPackageToggle<VNTDNDToggleViewController>(
        "/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle/DoNotDisturb.ca"_ns,
        "on"_ns, "off"_ns);
}

inline auto createFlashlightToggle() {
    return createImageToggle<VNTFlashlightToggleViewController>(
        "/Library/Application Support/Vantori/flashlight_on.png"_ns,
        "/Library/Application Support/Vantori/flashlight_off.png"_ns, "on"_ns, "off"_ns);
}

inline auto createNightShiftToggle() {
    const NSString moon = "/Library/Application Support/Vantori/nightshift.png"_ns;
    return createImageToggle<VNTNightshiftToggleViewController>(moon, moon, "on"_ns, "off"_ns);
}

// Of the everyday page: it shows the brightness panel.
inline auto createBrightnessSwitch() {
    const NSString sun = "/Library/Application Support/Vantori/brightness.png"_ns;
    return createImageToggle<VNTSwitchModuleToggleViewController>(sun, sun, "full"_ns, "min"_ns);
}

// Likewise for the volume panel.
inline auto createVolumeSwitch() {
    const NSString speaker = "/Library/Application Support/Vantori/volume.png"_ns;
    return createImageToggle<VNTSwitchModuleToggleViewController>(speaker, speaker, "full"_ns,
                                                                  "min"_ns);
}

}  // namespace vantori
