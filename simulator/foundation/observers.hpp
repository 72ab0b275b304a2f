// Observers of the default notification centre that die without saying so are forgotten, as the
// platform does since iOS 9; GNUstep's centre would go on sending to them.
#pragma once

namespace simulator {

void installObservers();

// How many registrations there are.
long registeredObservers();

}  // namespace simulator
