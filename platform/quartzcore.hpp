// QuartzCore, as far as the library uses it.
#pragma once

#include "platform/encoding.hpp"
#include "platform/foundation.hpp"

// A package that is a folder of drawings and their states, as Control Center's glyphs are.
extern "C" id kCAPackageTypeCAMLBundle;

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

// An archive of layers with named states.
struct CAPackage : Object {
    static constexpr FixedString name{"CAPackage"};
    using Object::Object;
    // Empty when nothing at the path can be read as a package.
    static CAPackage fromBundle(NSString path) {
        return sendClass<CAPackage, "packageWithContentsOfURL:type:options:error:", CAPackage>(
            NSURL::file(path), NSString(kCAPackageTypeCAMLBundle), Object(),
            static_cast<id*>(nullptr));
    }
};

}  // namespace platform
