// What the address sanitizer shall look at in every program of this tree, compiled in so that it
// holds however a program is started. Without the sanitizer nothing asks for these.
//
// Suppressed are leaks that are not ours, by the function or the library that allocates. GNUstep
// Base must never stand there as a whole, nor NSAllocateObject: a lost object of ours is allocated
// there too.

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
    return
        // The object runtime's tables of classes, selectors and methods, kept for the life of the
        // process; and a block of 40 bytes that the loader of classes makes before main.
        "leak:objc_malloc\n"
        "leak:__objc_exec_class\n"
        "leak:class_copyMethodList\n"
        // Fontconfig keeps its configuration; nothing of ours is allocated in it.
        "leak:libfontconfig.so\n";
}
}
