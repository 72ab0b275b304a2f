// Memory blocks and terminated strings.
#pragma once
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
void* memcpy(void* to, const void* from, size_t size);
void* memmove(void* to, const void* from, size_t size);
void* memset(void* to, int byte, size_t size);
int memcmp(const void* a, const void* b, size_t size);
void* memchr(const void* block, int byte, size_t size);

size_t strlen(const char* text);
int strcmp(const char* a, const char* b);
int strncmp(const char* a, const char* b, size_t size);
int strcoll(const char* a, const char* b);
char* strchr(const char* text, int letter);
char* strrchr(const char* text, int letter);
char* strstr(const char* text, const char* part);
char* strpbrk(const char* text, const char* set);
size_t strspn(const char* text, const char* set);
size_t strcspn(const char* text, const char* set);
char* strcpy(char* to, const char* from);
char* strncpy(char* to, const char* from, size_t size);
char* strcat(char* to, const char* from);
char* strdup(const char* text);
char* strerror(int number);
#ifdef __cplusplus
}
#endif
