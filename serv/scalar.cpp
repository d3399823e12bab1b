// Scalar helpers on single and double precision: sign transfer, integer power, truncation, cosine.
#include "vor_service.h"

#include <math.h>

namespace {

// |a| with the sign of b, by comparison: b < 0 is the only case that gives -|a|, so that -0 and NaN
// count as positive. A zero a keeps its own sign; a NaN a is negated for b < 0.
template <class T>
T sign(T a, T b) {
    if (b < 0) return a <= 0 ? a : -a;
    return a < 0 ? -a : a;
}

// x^n by squaring, everything in extended precision until the result is returned.
template <class T>
T powi(long double x, int n) {
    unsigned count = static_cast<unsigned>(n);
    if (n < 0) {
        x = 1 / x;
        count = 0 - count;
    }
    long double power = 1;
    while (count != 0) {
        if (count & 1) {
            power *= x;
            --count;
        } else {
            x *= x;
            count /= 2;
        }
    }
    return static_cast<T>(power);
}

} // namespace

extern "C" float vor_serv_s_sign(const float* a, const float* b) {
    return sign(*a, *b);
}

extern "C" double vor_serv_d_sign(const double* a, const double* b) {
    return sign(*a, *b);
}

extern "C" float vor_serv_s_powi(const float* x, const int* n) {
    return powi<float>(*x, *n);
}

extern "C" double vor_serv_d_powi(const double* x, const int* n) {
    return powi<double>(*x, *n);
}

extern "C" int vor_serv_s_int(const float* x) {
    return static_cast<int>(*x);
}

// The compiler's conversion switches the x87 to truncation and restores the caller's mode behind it.
extern "C" int vor_serv_d_int(const double* x) {
    return static_cast<int>(*x);
}

extern "C" double vor_serv_s_cos(const float* x) {
    return cos(static_cast<double>(*x));
}
