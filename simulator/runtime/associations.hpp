// Objects tied to other objects by the address of a key: GCC's runtime has none, Apple's has. The
// phone keeps them in a table and lets them go when their owner is deallocated.
#pragma once

#include <cstddef>

namespace simulator {

// Takes part in -[NSObject dealloc]; once, before anything is tied.
void installAssociations();
// How many objects have something tied to them.
std::size_t associatedOwners();

}  // namespace simulator
