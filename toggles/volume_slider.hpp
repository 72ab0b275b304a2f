// The slider of the volume in use: of what plays while an application plays, of the ringer
// otherwise.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

struct VNTVolumeSlider : VNTSlider {
    static constexpr FixedString name{"VNTVolumeSlider"};
    using VNTSlider::VNTSlider;
    // Last seen; the glyph follows it.
    NSString currentRoute() const { return send<"currentName", NSString>(); }
    void setCurrentRoute(NSString route) const { send<"setCurrentName:">(route); }
    NSString currentVolumeCategory() const { return send<"getCurrentVolumeCategory", NSString>(); }
};

void registerVolumeSlider();

}  // namespace vantori
