// UIKit's texts, pictures and buttons, as far as the library uses them. Lengths and font sizes are
// points.
#pragma once

#include "platform/uikit.hpp"

namespace platform {

struct UIFont : Object {
    static constexpr FixedString name{"UIFont"};
    using Object::Object;
    static UIFont system(double size) {
        return sendClass<UIFont, "systemFontOfSize:", UIFont>(size);
    }
};

struct UILabel : UIView {
    static constexpr FixedString name{"UILabel"};
    using UIView::UIView;
    NSString text() const { return send<"text", NSString>(); }
    void setText(NSString text) const { send<"setText:">(text); }
    void setFont(UIFont font) const { send<"setFont:">(font); }
    void setTextColor(UIColor color) const { send<"setTextColor:">(color); }
    void sizeToFit() const { send<"sizeToFit">(); }
};

struct UIImage : Object {
    static constexpr FixedString name{"UIImage"};
    using Object::Object;
    // Of the process's own bundle, or at an absolute path; the file of the screen's scale
    // (name@3x.png beside name.png) comes first. Empty when there is none.
    static UIImage named(NSString name) { return sendClass<UIImage, "imageNamed:", UIImage>(name); }
};

struct UIImageView : UIView {
    static constexpr FixedString name{"UIImageView"};
    using UIView::UIView;
    UIImage image() const { return send<"image", UIImage>(); }
    void setImage(UIImage image) const { send<"setImage:">(image); }
};

struct UIControl : UIView {
    static constexpr FixedString name{"UIControl"};
    using UIView::UIView;
    static constexpr unsigned long touchDown = 1, touchUpInside = 64, touchUpOutside = 128;
    void addTarget(Object target, SEL action, unsigned long events) const {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
};

struct UIButton : UIControl {
    static constexpr FixedString name{"UIButton"};
    using UIControl::UIControl;
    // For the normal state, which the others take over.
    void setImage(UIImage image) const { send<"setImage:forState:">(image, 0UL); }
};

}  // namespace platform
