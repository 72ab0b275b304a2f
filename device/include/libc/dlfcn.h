// Loading frameworks at run time. The values are Apple's: 9 is lazy and global.
#pragma once
#define RTLD_LAZY 0x1
#define RTLD_NOW 0x2
#define RTLD_LOCAL 0x4
#define RTLD_GLOBAL 0x8
#define RTLD_NOLOAD 0x10
#define RTLD_DEFAULT ((void*)-2)
#ifdef __cplusplus
extern "C" {
#endif
void* dlopen(const char* path, int mode);
void* dlsym(void* handle, const char* name);
int dlclose(void* handle);
char* dlerror(void);
#ifdef __cplusplus
}
#endif
