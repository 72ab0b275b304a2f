// UIKit, as far as the library uses it. Lengths are points, times seconds, angles radians. A class
// that the phone lacks yields empty handles, and messages to those do nothing.
#pragma once

#include "platform/quartzcore.hpp"

namespace platform {

struct UIResponder : Object {
    static constexpr FixedString name{"UIResponder"};
    using Object::Object;
};

struct UIColor : Object {
    static constexpr FixedString name{"UIColor"};
    using Object::Object;
    static UIColor white() { return sendClass<UIColor, "whiteColor", UIColor>(); }
    static UIColor black() { return sendClass<UIColor, "blackColor", UIColor>(); }
    static UIColor systemGray() { return sendClass<UIColor, "systemGrayColor", UIColor>(); }
    static UIColor clear() { return sendClass<UIColor, "clearColor", UIColor>(); }
    static UIColor systemBlue() { return sendClass<UIColor, "systemBlueColor", UIColor>(); }
    static UIColor systemOrange() { return sendClass<UIColor, "systemOrangeColor", UIColor>(); }
    // Each from 0 to 1.
    static UIColor rgba(double red, double green, double blue, double alpha) {
        return sendClass<UIColor, "colorWithRed:green:blue:alpha:", UIColor>(red, green, blue,
                                                                             alpha);
    }
    CGColorRef cgColor() const { return send<"CGColor", CGColorRef>(); }
};

struct UIGestureRecognizer;

struct UIWindow;

struct UIView : UIResponder {
    static constexpr FixedString name{"UIView"};
    using UIResponder::UIResponder;

    CGRect frame() const { return send<"frame", CGRect>(); }
    void setFrame(CGRect frame) const { send<"setFrame:">(frame); }
    CGRect bounds() const { return send<"bounds", CGRect>(); }
    void setBounds(CGRect bounds) const { send<"setBounds:">(bounds); }
    CGPoint center() const { return send<"center", CGPoint>(); }
    void setCenter(CGPoint center) const { send<"setCenter:">(center); }
    CGAffineTransform transform() const { return send<"transform", CGAffineTransform>(); }
    void setTransform(CGAffineTransform transform) const { send<"setTransform:">(transform); }
    // The layer keeps it as a 32-bit float.
    double alpha() const { return send<"alpha", double>(); }
    void setAlpha(double alpha) const { send<"setAlpha:">(alpha); }
    bool isHidden() const { return send<"isHidden", bool>(); }
    void setHidden(bool hidden) const { send<"setHidden:">(hidden); }
    void setUserInteractionEnabled(bool enabled) const {
        send<"setUserInteractionEnabled:">(enabled);
    }
    void setClipsToBounds(bool clips) const { send<"setClipsToBounds:">(clips); }
    // Which sides give way when the superview's bounds change; 0 keeps the frame.
    void setAutoresizingMask(unsigned long mask) const { send<"setAutoresizingMask:">(mask); }
    void setBackgroundColor(UIColor color) const { send<"setBackgroundColor:">(color); }
    CALayer layer() const { return send<"layer", CALayer>(); }

    UIView superview() const { return send<"superview", UIView>(); }
    NSArray subviews() const { return send<"subviews", NSArray>(); }
    void addSubview(UIView view) const { send<"addSubview:">(view); }
    void removeFromSuperview() const { send<"removeFromSuperview">(); }
    void sendSubviewToBack(UIView view) const { send<"sendSubviewToBack:">(view); }
    void bringSubviewToFront(UIView view) const { send<"bringSubviewToFront:">(view); }
    inline void addGestureRecognizer(UIGestureRecognizer recognizer) const;

    CGPoint convertPointFrom(CGPoint point, UIView view) const {
        return send<"convertPoint:fromView:", CGPoint>(point, view);
    }
    // The deepest view that takes a touch at the point (in own coordinates); empty for none.
    UIView hitTest(CGPoint point, Object event) const {
        return send<"hitTest:withEvent:", UIView>(point, event);
    }

    using Changes = BlockRef<void()>;
    using Completion = BlockRef<void(bool)>;
    static void animate(double duration, Changes changes) {
        sendClass<UIView, "animateWithDuration:animations:">(duration, changes);
    }
    static void animate(double duration, double delay, unsigned long options, Changes changes,
                        Completion completion) {
        sendClass<UIView, "animateWithDuration:delay:options:animations:completion:">(
            duration, delay, options, changes, completion);
    }
    static void animateWithSpring(double duration, double delay, double damping, double velocity,
                                  unsigned long options, Changes changes, Completion completion) {
        sendClass<UIView,
                  "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:"
                  "animations:completion:">(duration, delay, damping, velocity, options, changes,
                                            completion);
    }
};

struct UIGestureRecognizer : Object {
    static constexpr FixedString name{"UIGestureRecognizer"};
    using Object::Object;
    enum State : long { possible, began, changed, ended, cancelled, failed };

    State state() const { return static_cast<State>(send<"state", long>()); }
    UIView view() const { return send<"view", UIView>(); }
    void setDelegate(Object delegate) const { send<"setDelegate:">(delegate); }
    CGPoint locationInView(UIView view) const { return send<"locationInView:", CGPoint>(view); }
};

inline void UIView::addGestureRecognizer(UIGestureRecognizer recognizer) const {
    send<"addGestureRecognizer:">(recognizer);
}

struct UITapGestureRecognizer : UIGestureRecognizer {
    static constexpr FixedString name{"UITapGestureRecognizer"};
    using UIGestureRecognizer::UIGestureRecognizer;
};

struct UIPanGestureRecognizer : UIGestureRecognizer {
    static constexpr FixedString name{"UIPanGestureRecognizer"};
    using UIGestureRecognizer::UIGestureRecognizer;
    CGPoint velocityInView(UIView view) const { return send<"velocityInView:", CGPoint>(view); }
    void setTranslation(CGPoint translation, UIView view) const {
        send<"setTranslation:inView:">(translation, view);
    }
};

struct UISwipeGestureRecognizer : UIGestureRecognizer {
    static constexpr FixedString name{"UISwipeGestureRecognizer"};
    using UIGestureRecognizer::UIGestureRecognizer;
    static constexpr unsigned long down = 8;
    void setDirection(unsigned long direction) const { send<"setDirection:">(direction); }
};

struct UIScrollView : UIView {
    static constexpr FixedString name{"UIScrollView"};
    using UIView::UIView;
    CGSize contentSize() const { return send<"contentSize", CGSize>(); }
    void setContentSize(CGSize size) const { send<"setContentSize:">(size); }
    CGPoint contentOffset() const { return send<"contentOffset", CGPoint>(); }
    void setContentOffset(CGPoint offset) const { send<"setContentOffset:">(offset); }
    void setScrollEnabled(bool enabled) const { send<"setScrollEnabled:">(enabled); }
    void setPagingEnabled(bool enabled) const { send<"setPagingEnabled:">(enabled); }
    void setShowsHorizontalScrollIndicator(bool shows) const {
        send<"setShowsHorizontalScrollIndicator:">(shows);
    }
    void setShowsVerticalScrollIndicator(bool shows) const {
        send<"setShowsVerticalScrollIndicator:">(shows);
    }
    void setDelegate(Object delegate) const { send<"setDelegate:">(delegate); }
};

struct UIPageControl : UIView {
    static constexpr FixedString name{"UIPageControl"};
    using UIView::UIView;
    void setNumberOfPages(long pages) const { send<"setNumberOfPages:">(pages); }
    void setCurrentPage(long page) const { send<"setCurrentPage:">(page); }
    void setHidesForSinglePage(bool hides) const { send<"setHidesForSinglePage:">(hides); }
    void setCurrentPageIndicatorTintColor(UIColor color) const {
        send<"setCurrentPageIndicatorTintColor:">(color);
    }
    void setPageIndicatorTintColor(UIColor color) const {
        send<"setPageIndicatorTintColor:">(color);
    }
};

struct UIBlurEffect : Object {
    static constexpr FixedString name{"UIBlurEffect"};
    using Object::Object;
    static constexpr long light = 1, dark = 2;
    static UIBlurEffect withStyle(long style) {
        return sendClass<UIBlurEffect, "effectWithStyle:", UIBlurEffect>(style);
    }
};

struct UIVisualEffectView : UIView {
    static constexpr FixedString name{"UIVisualEffectView"};
    using UIView::UIView;
};

struct UIViewController : UIResponder {
    static constexpr FixedString name{"UIViewController"};
    using UIResponder::UIResponder;
    // Loads it on first use.
    UIView view() const { return send<"view", UIView>(); }
    void setView(UIView view) const { send<"setView:">(view); }
};

struct UIWindow : UIView {
    static constexpr FixedString name{"UIWindow"};
    using UIView::UIView;
    void setWindowLevel(double level) const { send<"setWindowLevel:">(level); }
    void setRootViewController(UIViewController controller) const {
        send<"setRootViewController:">(controller);
    }
    void makeKeyAndVisible() const { send<"makeKeyAndVisible">(); }
};

struct UIScreen : Object {
    static constexpr FixedString name{"UIScreen"};
    using Object::Object;
    static UIScreen mainScreen() { return sendClass<UIScreen, "mainScreen", UIScreen>(); }
    CGRect bounds() const { return send<"bounds", CGRect>(); }
    // Pixels for a point.
    double scale() const { return send<"scale", double>(); }
};

struct UIDevice : Object {
    static constexpr FixedString name{"UIDevice"};
    using Object::Object;
    static UIDevice currentDevice() { return sendClass<UIDevice, "currentDevice", UIDevice>(); }
    NSString systemVersion() const { return send<"systemVersion", NSString>(); }
    void setOrientation(long orientation, bool animated) const {
        send<"setOrientation:animated:">(orientation, animated);
    }
};

struct UITraitCollection : Object {
    static constexpr FixedString name{"UITraitCollection"};
    using Object::Object;
    static constexpr long dark = 2;
    // From iOS 13 on.
    static UITraitCollection current() {
        return sendClass<UITraitCollection, "currentTraitCollection", UITraitCollection>();
    }
    long userInterfaceStyle() const { return send<"userInterfaceStyle", long>(); }
};

struct UIImpactFeedbackGenerator : Object {
    static constexpr FixedString name{"UIImpactFeedbackGenerator"};
    using Object::Object;
    static constexpr long light = 0, medium = 1;
    void impactOccurred() const { send<"impactOccurred">(); }
};

enum InterfaceOrientation : long {
    orientationPortrait = 1,
    orientationUpsideDown = 2,
    orientationLandscapeRight = 3,
    orientationLandscapeLeft = 4,
};

}  // namespace platform
