// Before a loop that computes the same on every processor, to the bit: it is compiled for the widest vectors of the processor as well, and
// the better one is taken when the program is loaded. Under the sanitizers that would be before they are
// ready.
#pragma once

#if defined(__x86_64__) && defined(__gnu_linux__) && !defined(__SANITIZE_ADDRESS__)
#define SIMULATOR_WIDEST_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define SIMULATOR_WIDEST_VECTORS
#endif
