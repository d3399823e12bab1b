// rotg: the plane rotation that takes (a, b) to (r, 0).
//
// Single precision rounds after each operation, and its square root is one Newton step on the
// processor's estimate of the reciprocal root. Double precision works in extended precision, with the
// exact square root, and rounds at the stores. The real routines do not scale: the quotient of the two
// numbers, at most 1, is squared.
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

inline extended root(extended v) {
    return __builtin_sqrtl(v);
}
// Relative error about 1e-7: the estimate is good to 12 bits, and a Newton step doubles them.
inline float root(float v) {
    const float e = v == 0 ? 0 : reciprocal_root_estimate(v);
    const float p = v * e;
    return p * (e * p - 3.0f) * -0.5f;
}

template <class R>
void rotg(R* a_, R* b_, R* c_, R* s_) {
    using W = work_real_t<R>;
    const W a = *a_, b = *b_;
    const bool a_is_larger = magnitude(a) > magnitude(b);
    const W roe = a_is_larger ? a : b;
    if (roe == 0) {
        *c_ = 1, *s_ = 0, *a_ = 0, *b_ = 0;
        return;
    }
    const W t = (a_is_larger ? b : a) / roe;
    const W r = roe * root(t * t + 1);
    const W c = a * (1 / r), s = b * (1 / r);
    const W z = a_is_larger ? s : c == 0 ? W(1) : 1 / c;
    *c_ = static_cast<R>(c), *s_ = static_cast<R>(s);
    *a_ = static_cast<R>(r), *b_ = static_cast<R>(z);
}

template <class T>
void rotg(T* ca, const T* cb, real_t<T>* c, T* s) {
    using R = real_t<T>;
    using W = work_real_t<R>;
    const W ar = ca->re, ai = ca->im, br = cb->re, bi = cb->im;
    const W modulus = root(ar * ar + ai * ai);
    if (modulus == 0) {
        *c = 0, *s = {1, 0}, *ca = *cb;
        return;
    }
    const W scale = modulus + root(br * br + bi * bi);
    const W xr = ar / scale, xi = ai / scale, yr = br / scale, yi = bi / scale;
    const W norm = scale * root(xr * xr + xi * xi + yr * yr + yi * yi);
    const W re = ar / modulus, im = ai / modulus; // the direction of ca
    *c = static_cast<R>(modulus / norm);
    *s = {static_cast<R>((re * br + im * bi) / norm), static_cast<R>((im * br - re * bi) / norm)};
    *ca = {static_cast<R>(re * norm), static_cast<R>(im * norm)};
}

} // namespace

#define ROTG(name, NAME, engine, PARAMS)                                                           \
    LEVEL1(void, name, NAME, engine, PARAMS, ARGS_ROTG, rotg(a, b, c, s))
ROTG(srotg, SROTG, vor_blas_srotg, PARAMS_ROTG(float))
ROTG(drotg, DROTG, vor_blas_drotg, PARAMS_ROTG(double))
ROTG(crotg, CROTG, vor_blas_crotg, PARAMS_CROTG(cfloat, float))
ROTG(zrotg, ZROTG, vor_blas_zrotg, PARAMS_CROTG(cdouble, double))

} // namespace vor::blas
