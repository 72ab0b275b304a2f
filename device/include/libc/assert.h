// The device build is always a release: assertions are checked by the tests on Linux.
// No include guard: the standard lets assert.h be read again.
#undef assert
#define assert(condition) ((void)0)
#ifndef __cplusplus
#define static_assert _Static_assert
#endif
