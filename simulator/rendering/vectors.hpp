// Loops over many pixels, for the vectors of whatever processor runs them.
#pragma once

#include <cstddef>

// Before a loop that computes the same on every processor, to the bit: it is compiled for wider vectors as
// well, and the widest that the processor has are taken when the program is loaded. Under the sanitizers
// that would be before they are ready.
#if defined(__x86_64__) && defined(__gnu_linux__) && !defined(__SANITIZE_ADDRESS__)
#define SIMULATOR_WIDEST_VECTORS [[gnu::target_clones("arch=x86-64-v4", "avx2", "default")]]
#else
#define SIMULATOR_WIDEST_VECTORS
#endif

namespace simulator::rendering {

// A screen of pixels is more than a core's own caches hold, and the processor looks ahead by itself only to
// the end of a page of memory, which is every third row. So loops ask so many bytes before they need them.
constexpr std::size_t lookAhead = 1024;

inline void willRead(const void* there) { __builtin_prefetch(there); }
inline void willWrite(void* there) { __builtin_prefetch(there, 1); }

}  // namespace simulator::rendering
