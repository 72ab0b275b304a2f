// The default notification centre tells its observers in the order in which they registered, as the
// platform's does (it promises none); GNUstep's centre goes from the last to the second, then the
// first.
#pragma once

namespace simulator {

// Before whatever else stands in for the centre's methods.
void installNotificationOrder();

}  // namespace simulator
