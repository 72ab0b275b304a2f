// A view that scrolls what is wider than itself: after a pause its content glides to the left until
// it has come round once, and pauses again. The content is shown twice, so that its beginning follows
// its end, and fades at the edges while it scrolls.
#pragma once

namespace simulator {

void registerMarqueeView();

}  // namespace simulator
