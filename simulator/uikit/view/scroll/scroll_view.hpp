// Scroll views: the content offset is the origin of the bounds. A drag, its momentum, paging, and
// animated offsets move it frame by frame and tell the delegate in the platform's order.
#pragma once

#include "simulator/uikit/view/view.hpp"

namespace simulator {

// Holds touches of its content back to see whether they become a drag.
bool delaysContent(UIScrollView view);
// Some scroll view is being dragged or runs on: timers in the default mode wait.
bool isScrollTracking();

// Told by the view: its bounds were of that size.
void scrollSizeChanged(UIScrollView view, CGSize before);

void registerScrollView();

}  // namespace simulator
