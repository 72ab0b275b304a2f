// The slider of the volume in use: of what plays while an application plays, of the ringer
// otherwise.
#pragma once

#include "toggles/slider.hpp"

namespace vantori {

struct VNTVolumeSlider : VNTSlider {
    static constexpr FixedString name{"VNTVolumeSlider"};
    using VNTSlider::VNTSlider;
    // Of the route last seen; the glyph follows it.
    NSString currentName() const { return send<"currentName", NSString>(); }
    void setCurrentName(NSString route) const { send<"setCurrentName:">(route); }
    NSString currentVolumeCategory() const { return send<"getCurrentVolumeCategory", NSString>(); }
};

void registerVolumeSlider();

}  // namespace vantori
