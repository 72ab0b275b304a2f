// QuartzCore, as far as the library uses it.
#pragma once

#include "platform/encoding.hpp"
#include "platform/foundation.hpp"

namespace platform {

struct CALayer : Object {
    static constexpr FixedString name{"CALayer"};
    using Object::Object;

    NSArray sublayers() const { return send<"sublayers", NSArray>(); }
    // Shows the layer through the mask's alpha. The mask belongs to no other layer.
    void setMask(CALayer mask) const { send<"setMask:">(mask); }
    // Colours what the layer shows, not its background.
    void setContentsMultiplyColor(CGColorRef color) const {
        send<"setContentsMultiplyColor:">(color);
    }
    double cornerRadius() const { return send<"cornerRadius", double>(); }
    void setCornerRadius(double points) const { send<"setCornerRadius:">(points); }
    bool masksToBounds() const { return send<"masksToBounds", bool>(); }
    void setMasksToBounds(bool masks) const { send<"setMasksToBounds:">(masks); }
};

}  // namespace platform
