// Selectors by their names.
//
// For a phone each is a pointer to its name in a section that the runtime reads when it meets the
// library: it puts the one selector of that name in place of the pointer, before anything of ours runs.
// The library must say that it has something for the runtime (__objc_imageinfo), or it is passed over.
// Elsewhere a selector is asked for when it is first used.
#pragma once

#include "platform/fixed_string.hpp"
#include "platform/runtime.hpp"

#if !defined(__APPLE__)
#include <atomic>
#endif

namespace platform {

#if defined(__APPLE__)

namespace detail {

// The version of the format, and flags that all concern classes which a compiler writes.
struct ImageInfo {
    unsigned version, flags;
};
[[gnu::used, gnu::section("__DATA,__objc_imageinfo,regular,no_dead_strip")]]
static constexpr ImageInfo imageInfo{0, 0};

// The reference is not constant, though nothing here writes it: the runtime does.
template <FixedString name>
struct SelectorReference {
    [[gnu::section("__TEXT,__objc_methname,cstring_literals")]]
    static constexpr auto text = name.text;
    [[gnu::section("__DATA,__objc_selrefs,literal_pointers")]]
    static inline const char* selector = text.data();
};

}  // namespace detail

template <FixedString name>
SEL selector() {
    return reinterpret_cast<SEL>(detail::SelectorReference<name>::selector);
}

#else

template <FixedString name>
SEL selector() {
    static std::atomic<SEL> cached{nullptr};
    SEL found = cached.load(std::memory_order_relaxed);
    if (!found) {
        found = sel_registerName(name.data());
        cached.store(found, std::memory_order_relaxed);
    }
    return found;
}

#endif

}  // namespace platform
