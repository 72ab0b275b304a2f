// Calendar time in seconds since 1970.
#pragma once
#include <stddef.h>
typedef long time_t;
typedef unsigned long clock_t;
struct timespec {
    time_t tv_sec;
    long tv_nsec;
};
#ifdef __cplusplus
extern "C" {
#endif
time_t time(time_t* result);
#ifdef __cplusplus
}
#endif
