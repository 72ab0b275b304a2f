// The spring that every movement of the toolbar and of an application's scene shares.
#pragma once

#include "platform/uikit.hpp"

namespace vantori {

using namespace platform;

// Half a second, no delay; damping and initial velocity are single-precision numbers.
inline void animateWithSharedSpring(UIView::Changes changes, UIView::Completion completion = {}) {
    UIView::animateWithSpring(0.5, 0, 0.6f, 0.3f, 0, changes, completion);
}

// "An empty completion": a block that does nothing.
inline auto emptyCompletion() {
    return block<void(bool)>([](bool) {});
}

}  // namespace vantori
