// Emptying a view. The list is copied first: taking a view off changes the one that its superview has.
#pragma once

#include "platform/ownership.hpp"
#include "platform/uikit.hpp"

namespace platform {

// Nothing happens to an empty handle.
inline void removeSubviews(UIView view) {
    const Strong<NSArray> subviews = adopted(view.subviews().send<"copy", NSArray>());
    for (unsigned long i = 0; i < subviews.count(); ++i) {
        subviews.at<UIView>(i).removeFromSuperview();
    }
}

}  // namespace platform
