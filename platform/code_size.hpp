// What the library says of small code. On a phone it is one of many libraries in SpringBoard, so there
// what many places share is one function; on Linux the compiler is free to copy it to where it is used.
#pragma once

#if defined(__APPLE__)
// One copy, which is called.
#define VANTORI_SHARED [[gnu::noinline]]
// Nothing but a call of another function: never a function of its own.
#define VANTORI_FORWARDED [[gnu::always_inline]]
// What it calls is part of it, so that the standard library's atomics know the order that they are
// given; where the compiler favours small code, each is a function that is ready for any.
#define VANTORI_WHOLE [[gnu::flatten]]
#else
#define VANTORI_SHARED
#define VANTORI_FORWARDED
#define VANTORI_WHOLE
#endif
