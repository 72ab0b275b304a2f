// What the files of UIView share: the state of a view and the operations that the rest of the phone
// may use without a message. Points; alpha 0 to 1.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/uikit/layer/layer.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

struct ViewState {
    Strong<CALayer> layer;
    std::vector<Strong<UIView>> subviews;  // back to front
    std::vector<Strong<UIGestureRecognizer>> recognizers;
    UIView superview;             // not owned
    UIViewController controller;  // not owned; of which this is the root view
    Strong<UIColor> background;
    Strong<UIColor> tint;
    Copied<NSString> accessibilityLabel;
    Copied<NSString> accessibilityIdentifier;
    long tag;
    long contentMode;
    long overrideStyle;  // UIUserInterfaceStyle; 0 takes the superview's
    Traits seenTraits;   // that it was last told
    unsigned long autoresizing;
    bool interactionDisabled;
    bool keepsSubviewSizes;  // autoresizesSubviews is NO
    bool multipleTouch;
    bool exclusiveTouch;
    bool needsLayout;
    bool layingOut;       // layoutSubviews, or its controller's calls around it, run now
    bool translucent;     // isOpaque is NO
    bool ownConstraints;  // translatesAutoresizingMaskIntoConstraints is NO

    ~ViewState();
};

inline ViewState& viewState(UIView view) { return stateOf<ViewState>(view); }
// Makes it on first use, so that a view is usable before its initialiser has run.
CALayer layerOf(UIView view);
inline LayerValues& valuesOf(UIView view) { return layerState(layerOf(view)).values; }

UIWindow windowOf(UIView view);
bool isDescendant(UIView view, UIView ancestor);

// Where points of the view lie in another; an empty view means the window.
CGAffineTransform conversion(UIView from, UIView to);
CGAffineTransform conversionToScreen(UIView from);

void insertSubview(UIView parent, UIView child, std::size_t index);
void removeFromSuperview(UIView view);

// Layout is done before the next frame, or at once by layoutIfNeeded.
void markNeedsLayout(UIView view);
void layoutTree(UIView view);
void layoutWindows();
// Told by the layer.
void boundsDidChange(UIView view, CGRect before);

// Sends traitCollectionDidChange: down the tree where the style or a size class changed.
void updateTraits(UIView root);
long styleOf(UIView view);

UIView hitTest(UIView view, CGPoint point, Object event);

// An object that answers frame, bounds, center, alpha, transform, layer, as on screen now. Takes a
// view or a layer.
Object presentation(Object viewOrLayer);
// Takes the running animations off the view or layer: their completions run now, with NO.
void interrupt(Object viewOrLayer);

// Class, frame, frame on screen (as `onScreen` answers it), text, alpha, hidden, transform, corner
// radius; one view a line, indented. Empty: all windows.
using FrameOnScreen = std::optional<CGRect> (*)(UIView);
std::string viewTree(UIView root, FrameOnScreen onScreen);

void registerResponder();
void registerView();
void addViewGeometry(const Table<UIView>& views);
void addViewHierarchy(const Table<UIView>& views);
void addViewLayout(const Table<UIView>& views);
void addViewAppearance(const Table<UIView>& views);
void addViewAnimations(const Table<UIView>& views);
void addViewTouches(const Table<UIView>& views);
void registerPresentation();

}  // namespace simulator
