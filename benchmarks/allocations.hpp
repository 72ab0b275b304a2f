// Counts requests for memory: all of them, and those that the code of libvantori.so makes itself.
// Under the sanitizers, which have an allocator of their own, nothing is counted.
#pragma once

namespace benchmarks {

struct Allocations {
    unsigned long all = 0;
    unsigned long library = 0;
};

// Looks up where the library lies in memory; call it once the library is loaded.
void watchLibrary();

// Whether the code at that address is the library's.
bool isOfLibrary(const void* address);

// What was counted since the process started.
Allocations allocations();

}  // namespace benchmarks
