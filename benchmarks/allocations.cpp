// Stands in front of the C library's allocator. An allocation belongs to the code that the call
// returns to; operator new is replaced as well, since its calls would all seem to come from the
// standard library.
#include "benchmarks/allocations.hpp"

#include <link.h>

#include <cstdint>
#include <cstdlib>
#include <new>
#include <string_view>

namespace benchmarks {

namespace {

struct Range {
    std::uintptr_t first = 0;
    std::uintptr_t end = 0;
};

Range library;
Allocations counted;

int findLibrary(dl_phdr_info* object, std::size_t, void*) {
    if (!std::string_view(object->dlpi_name).ends_with("libvantori.so")) return 0;
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const auto& segment = object->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
        library.first = object->dlpi_addr + segment.p_vaddr;
        library.end = library.first + segment.p_memsz;
    }
    return 1;
}

}  // namespace

void watchLibrary() { dl_iterate_phdr(&findLibrary, nullptr); }

bool isOfLibrary(const void* code) {
    const auto address = reinterpret_cast<std::uintptr_t>(code);
    return address >= library.first && address < library.end;
}

Allocations allocations() { return counted; }

namespace detail {

void count(const void* caller) {
    ++counted.all;
    if (isOfLibrary(caller)) ++counted.library;
}

}  // namespace detail

}  // namespace benchmarks

#ifndef __SANITIZE_ADDRESS__

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    benchmarks::detail::count(__builtin_return_address(0));
    return __libc_malloc(size);
}
__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    benchmarks::detail::count(__builtin_return_address(0));
    return __libc_calloc(count, size);
}
__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    benchmarks::detail::count(__builtin_return_address(0));
    return __libc_realloc(block, size);
}
}

void* operator new(std::size_t size) {
    benchmarks::detail::count(__builtin_return_address(0));
    void* block = __libc_malloc(size);
    if (!block) throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

#endif
