// Memory, number conversion and program end, as on 64-bit iOS.
#pragma once
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct {
    int quot, rem;
} div_t;
typedef struct {
    long quot, rem;
} ldiv_t;
typedef struct {
    long long quot, rem;
} lldiv_t;

void* malloc(size_t size);
void* calloc(size_t count, size_t size);
void* realloc(void* block, size_t size);
void free(void* block);
int posix_memalign(void** block, size_t alignment, size_t size);

__attribute__((noreturn)) void abort(void);

int abs(int value);
long labs(long value);
long long llabs(long long value);
div_t div(int numerator, int denominator);
ldiv_t ldiv(long numerator, long denominator);
lldiv_t lldiv(long long numerator, long long denominator);
int atoi(const char* text);
double atof(const char* text);
long strtol(const char* text, char** end, int base);
long long strtoll(const char* text, char** end, int base);
unsigned long strtoul(const char* text, char** end, int base);
unsigned long long strtoull(const char* text, char** end, int base);
float strtof(const char* text, char** end);
double strtod(const char* text, char** end);
long double strtold(const char* text, char** end);
void qsort(void* base, size_t count, size_t size, int (*compare)(const void*, const void*));
char* getenv(const char* name);
unsigned int arc4random_uniform(unsigned int bound);
#ifdef __cplusplus
}
#endif
