// Memory that GNUstep keeps by itself, hidden from the leak check of the address sanitizer.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace simulator {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool leaksAreChecked = true;

// What is allocated while one of these lives may be lost.
class LeaksAllowed {
  public:
    LeaksAllowed() { __lsan_disable(); }
    ~LeaksAllowed() { __lsan_enable(); }
    LeaksAllowed(const LeaksAllowed&) = delete;
    LeaksAllowed& operator=(const LeaksAllowed&) = delete;
};
#else
inline constexpr bool leaksAreChecked = false;

class LeaksAllowed {
  public:
    LeaksAllowed() {}
};
#endif

}  // namespace simulator
