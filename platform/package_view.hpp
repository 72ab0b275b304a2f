// The view that plays a glyph package of Control Center. The class may be missing.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

struct CCUICAPackageView : UIView {
    static constexpr FixedString name{"CCUICAPackageView"};
    using UIView::UIView;
    void setPackage(CAPackage package) const { send<"setPackage:">(package); }
    // Not animated.
    void setStateName(NSString state) const { send<"setStateName:">(state); }
};

}  // namespace platform
