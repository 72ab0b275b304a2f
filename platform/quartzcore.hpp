// QuartzCore, as far as the library uses it.
#pragma once

#include "platform/encoding.hpp"
#include "platform/foundation.hpp"

namespace platform {

struct CALayer : Object {
    static constexpr FixedString name{"CALayer"};
    using Object::Object;

    double cornerRadius() const { return send<"cornerRadius", double>(); }
    void setCornerRadius(double points) const { send<"setCornerRadius:">(points); }
    bool masksToBounds() const { return send<"masksToBounds", bool>(); }
    void setMasksToBounds(bool masks) const { send<"setMasksToBounds:">(masks); }
};

}  // namespace platform
