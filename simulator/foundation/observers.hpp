// Observers that are gone: since iOS 9 the notification centre skips them, while GNUstep's would send
// to freed memory. An object that observes is taken out of the centre when it is deallocated.
#pragma once

namespace simulator {

void installObservers();

}  // namespace simulator
