// libc++'s <string> wants EOF and <cstdio> the type FILE; the library opens no files itself.
#pragma once
#include <stdarg.h>
#include <stddef.h>
#define EOF (-1)
typedef struct __sFILE FILE;
typedef long long fpos_t;
#ifdef __cplusplus
extern "C" {
#endif
int snprintf(char* to, size_t size, const char* format, ...) __attribute__((format(printf, 3, 4)));
int vsnprintf(char* to, size_t size, const char* format, va_list arguments)
    __attribute__((format(printf, 3, 0)));
int sscanf(const char* from, const char* format, ...) __attribute__((format(scanf, 2, 3)));
int remove(const char* path);
#ifdef __cplusplus
}
#endif
