// libc++ asks for this header by Apple's name. 128 bytes, opaque.
#pragma once
typedef union {
    char opaque[128];
    long long alignment;
} mbstate_t;
