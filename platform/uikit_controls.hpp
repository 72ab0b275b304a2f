// UIKit's pictures and buttons, as far as the library uses them. Lengths are points.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

struct UIImage : Object {
    static constexpr FixedString name{"UIImage"};
    using Object::Object;
    // Zero for no image.
    CGSize size() const { return send<"size", CGSize>(); }
};

struct UIControl : UIView {
    static constexpr FixedString name{"UIControl"};
    using UIView::UIView;
    static constexpr unsigned long touchUpInside = 64, touchUpOutside = 128;
    void addTarget(Object target, SEL action, unsigned long events) const {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
};

struct UIButton : UIControl {
    static constexpr FixedString name{"UIButton"};
    using UIControl::UIControl;
    static constexpr unsigned long normal = 0;
    void setImage(UIImage image, unsigned long state) const {
        send<"setImage:forState:">(image, state);
    }
};

}  // namespace platform
