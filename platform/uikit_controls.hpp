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
    static UIFont boldSystem(double size) {
        return sendClass<UIFont, "boldSystemFontOfSize:", UIFont>(size);
    }
};

// The room that a text takes in lines of at most that width.
inline CGSize textSize(NSString text, UIFont font, double width) {
    constexpr long inLines = 1, withLeading = 2;
    constexpr double anyHeight = 1e6;
    // The key is the value of UIKit's NSFontAttributeName.
    return text
        .send<"boundingRectWithSize:options:attributes:context:", CGRect>(
            CGSize{width, anyHeight}, inLines | withLeading, NSDictionary::with(font, "NSFont"_ns),
            Object())
        .size;
}

struct UILabel : UIView {
    static constexpr FixedString name{"UILabel"};
    using UIView::UIView;
    static constexpr long center = 1, right = 2;
    NSString text() const { return send<"text", NSString>(); }
    void setText(NSString text) const { send<"setText:">(text); }
    void setFont(UIFont font) const { send<"setFont:">(font); }
    void setTextColor(UIColor color) const { send<"setTextColor:">(color); }
    void setTextAlignment(long alignment) const { send<"setTextAlignment:">(alignment); }
    // 0: as many as the text needs.
    void setNumberOfLines(long lines) const { send<"setNumberOfLines:">(lines); }
    void sizeToFit() const { send<"sizeToFit">(); }
};

struct UIImage : Object {
    static constexpr FixedString name{"UIImage"};
    using Object::Object;
    static constexpr long alwaysTemplate = 2;
    // Of the process's own bundle, or at an absolute path; the file of the screen's scale
    // (name@3x.png beside name.png) comes first. Empty when there is none.
    static UIImage named(NSString nameOrPath) {
        return sendClass<UIImage, "imageNamed:", UIImage>(nameOrPath);
    }
    // The file of the screen's scale comes first here too.
    static UIImage withContentsOfFile(NSString path) {
        return sendClass<UIImage, "imageWithContentsOfFile:", UIImage>(path);
    }
    // Empty when the data is no picture.
    static UIImage withData(NSData data) {
        return sendClass<UIImage, "imageWithData:", UIImage>(data);
    }
    // Template: only the picture's alpha counts, drawn in the view's tint colour.
    UIImage withRenderingMode(long mode) const {
        return send<"imageWithRenderingMode:", UIImage>(mode);
    }
    // Zero for no image.
    CGSize size() const { return send<"size", CGSize>(); }
};

struct UIImageView : UIView {
    static constexpr FixedString name{"UIImageView"};
    using UIView::UIView;
    static constexpr long aspectFit = 1;
    UIImage image() const { return send<"image", UIImage>(); }
    void setImage(UIImage image) const { send<"setImage:">(image); }
    void setContentMode(long mode) const { send<"setContentMode:">(mode); }
    void setTintColor(UIColor color) const { send<"setTintColor:">(color); }
};

struct UIControl : UIView {
    static constexpr FixedString name{"UIControl"};
    using UIView::UIView;
    static constexpr unsigned long touchDown = 1, touchUpInside = 64, touchUpOutside = 128;
    // The same target and action again counts once.
    void addTarget(Object target, SEL action, unsigned long events) const {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
};

struct UIButton : UIControl {
    static constexpr FixedString name{"UIButton"};
    using UIControl::UIControl;
    static UIButton plain() { return sendClass<UIButton, "buttonWithType:", UIButton>(0L); }
    UILabel titleLabel() const { return send<"titleLabel", UILabel>(); }
    // For the normal state, which the others take over.
    void setImage(UIImage image) const { send<"setImage:forState:">(image, 0UL); }
    void setTitle(NSString title) const { send<"setTitle:forState:">(title, 0UL); }
    void setTitleColor(UIColor color) const { send<"setTitleColor:forState:">(color, 0UL); }
};

struct UIApplication : UIResponder {
    static constexpr FixedString name{"UIApplication"};
    using UIResponder::UIResponder;
    static UIApplication shared() {
        return sendClass<UIApplication, "sharedApplication", UIApplication>();
    }
    CGRect statusBarFrame() const { return send<"statusBarFrame", CGRect>(); }
    // Answers whether anything on the phone opens such addresses.
    bool open(NSURL address) const { return send<"openURL:", bool>(address); }
};

}  // namespace platform
