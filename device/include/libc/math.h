// The usual functions of the system's math library (part of libSystem), double and float.
// On arm64 iOS long double is double.
#pragma once
#define INFINITY __builtin_inff()
#define NAN __builtin_nanf("")
#define HUGE_VAL __builtin_huge_val()
#define HUGE_VALF __builtin_huge_valf()

#define FP_NAN 1
#define FP_INFINITE 2
#define FP_ZERO 3
#define FP_NORMAL 4
#define FP_SUBNORMAL 5

#define M_PI 3.14159265358979323846
#define M_PI_2 1.57079632679489661923
#define M_PI_4 0.785398163397448309616

#ifdef __cplusplus
extern "C" {
#endif
typedef float float_t;
typedef double double_t;

#define VANTORI_MATH(name) \
    double name(double);   \
    float name##f(float);  \
    long double name##l(long double)
#define VANTORI_MATH2(name)      \
    double name(double, double); \
    float name##f(float, float); \
    long double name##l(long double, long double)
VANTORI_MATH(fabs);
VANTORI_MATH(floor);
VANTORI_MATH(ceil);
VANTORI_MATH(trunc);
VANTORI_MATH(round);
VANTORI_MATH(rint);
VANTORI_MATH(nearbyint);
VANTORI_MATH(sqrt);
VANTORI_MATH(cbrt);
VANTORI_MATH(exp);
VANTORI_MATH(exp2);
VANTORI_MATH(expm1);
VANTORI_MATH(log);
VANTORI_MATH(log2);
VANTORI_MATH(log10);
VANTORI_MATH(log1p);
VANTORI_MATH(sin);
VANTORI_MATH(cos);
VANTORI_MATH(tan);
VANTORI_MATH(asin);
VANTORI_MATH(acos);
VANTORI_MATH(atan);
VANTORI_MATH(sinh);
VANTORI_MATH(cosh);
VANTORI_MATH(tanh);
VANTORI_MATH(asinh);
VANTORI_MATH(acosh);
VANTORI_MATH(atanh);
VANTORI_MATH(erf);
VANTORI_MATH(erfc);
VANTORI_MATH(lgamma);
VANTORI_MATH(tgamma);
VANTORI_MATH(logb);
VANTORI_MATH2(atan2);
VANTORI_MATH2(copysign);
VANTORI_MATH2(fdim);
VANTORI_MATH2(fmax);
VANTORI_MATH2(fmin);
VANTORI_MATH2(fmod);
VANTORI_MATH2(hypot);
VANTORI_MATH2(nextafter);
VANTORI_MATH2(pow);
VANTORI_MATH2(remainder);
#undef VANTORI_MATH
#undef VANTORI_MATH2

double fma(double, double, double);
float fmaf(float, float, float);
long double fmal(long double, long double, long double);
double modf(double value, double* whole);
double frexp(double value, int* exponent);
double ldexp(double value, int exponent);
double scalbn(double value, int exponent);
long lround(double value);
long lroundf(float value);
long long llround(double value);
long lrint(double value);
long long llrint(double value);
int ilogb(double value);
#ifdef __cplusplus
}
#endif
