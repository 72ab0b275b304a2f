// What the address sanitizer shall look at in every program of this tree, compiled in so that it
// holds however a program is started. Without the sanitizer nothing asks for these.
//
// Left out are leaks that are not ours. GNUstep Base must never stand there as a whole, nor
// NSAllocateObject: a lost object of ours is allocated there too.
#ifdef __SANITIZE_ADDRESS__
#include <dlfcn.h>
#include <sanitizer/lsan_interface.h>

#include <cstdlib>

#include "platform/runtime.hpp"
#endif

extern "C" {

[[gnu::visibility("default")]] const char* __asan_default_options() {
    return "detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1";
}

[[gnu::visibility("default")]] const char* __ubsan_default_options() {
    return "print_stacktrace=1:halt_on_error=1";
}

[[gnu::visibility("default")]] const char* __lsan_default_options() {
    return "print_suppressions=0";
}

[[gnu::visibility("default")]] const char* __lsan_default_suppressions() {
    // Fontconfig keeps its configuration; nothing of ours is allocated in it.
    return "leak:libfontconfig.so\n";
}

#ifdef __SANITIZE_ADDRESS__

// The object runtime's tables of classes, selectors and methods, kept for the life of the process.
// They are allocated unseen: to suppress them, every process would read the symbols of the whole
// program at its end, which takes longer than most tests.

[[gnu::visibility("default")]] void* objc_malloc(std::size_t size) {
    __lsan::ScopedDisabler unseen;
    return std::malloc(size);
}

[[gnu::visibility("default")]] void* objc_calloc(std::size_t count, std::size_t size) {
    __lsan::ScopedDisabler unseen;
    return std::calloc(count, size);
}

[[gnu::visibility("default")]] void* objc_realloc(void* block, std::size_t size) {
    __lsan::ScopedDisabler unseen;
    return std::realloc(block, size);
}

// Foundation keeps a list of its own.
[[gnu::visibility("default")]] Method* class_copyMethodList(Class cls, unsigned* count) {
    static const auto system =
        reinterpret_cast<decltype(&class_copyMethodList)>(dlsym(RTLD_NEXT, "class_copyMethodList"));
    __lsan::ScopedDisabler unseen;
    return system(cls, count);
}

#endif
}
