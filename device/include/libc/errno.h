// The number of the last error of a C function, and the few numbers that libc++ names.
#pragma once
#ifdef __cplusplus
extern "C" {
#endif
int* __error(void);
#ifdef __cplusplus
}
#endif
#define errno (*__error())
#define ENOENT 2
#define EINVAL 22
#define ERANGE 34
#define EOVERFLOW 84
