// Marks the C functions that the phone offers to the library that it loads. Everything else of the
// program is hidden.
#pragma once

#define VANTORI_EXPORT extern "C" __attribute__((visibility("default")))
