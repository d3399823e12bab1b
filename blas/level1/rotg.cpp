// rotg: the plane rotation that takes (a, b) to (r, 0).
//
// Single precision rounds after each operation, and its square root is one Newton step on the
// processor's estimate of the reciprocal root. Double precision works in extended precision, with the
// exact square root, and rounds at the stores. The real routines do not scale: the quotient of the two
// numbers, at most 1, is squared. The complex ones scale by powers of two, which change no bit, where a
// square would leave the range: in single precision alone, since extended precision has room for all.
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

template <class W>
W square(Complex<W> x) {
    return x.re * x.re + x.im * x.im;
}

// Squares between these have a root, and lose no term that counts.
template <class W>
constexpr W kLeastSquare = std::is_same_v<W, float> ? __FLT_MIN__ : __LDBL_MIN__;
template <class W>
constexpr W kMostSquare = std::is_same_v<W, float> ? __FLT_MAX__ : __LDBL_MAX__;

// What takes a number of a smaller or larger square to the middle of the range.
template <class W>
constexpr W kUp = 0x1p100f;
template <class W>
constexpr W kDown = 0x1p-80f;

template <class T>
void rotg(T* ca, const T* cb, real_t<T>* c, T* s) {
    using R = real_t<T>;
    using W = work_real_t<T>;
    using C = Complex<W>;
    const C a = number<C>(*ca), b = number<C>(*cb);
    if (is_zero(*ca)) {
        *c = 0, *s = {1, 0}, *ca = *cb;
        return;
    }
    const auto small = [](C x) { return square(x) < kLeastSquare<W>; };
    const auto large = [](C x) { return square(x) > kMostSquare<W>; };
    // Factors for both numbers, and for a where only its direction and its modulus are asked.
    const W both = large(a) || large(b) ? kDown<W> : small(a) && small(b) ? kUp<W> : W(1);
    const W own = large(a) ? kDown<W> : small(a) ? kUp<W> : W(1);

    const C raised = a * own, x = a * both, y = b * both;
    const W raised_modulus = root(square(raised));
    const W modulus = own == both ? raised_modulus : raised_modulus / own * both;
    // A modulus too small for a square adds nothing to the other one.
    const W scale = modulus + (small(y) ? W(0) : root(square(y)));
    const C xs = {x.re / scale, x.im / scale}, ys = {y.re / scale, y.im / scale};
    const W norm = scale * root(square(xs) + ys.re * ys.re + ys.im * ys.im);
    const C direction = {raised.re / raised_modulus, raised.im / raised_modulus};
    const C turned = product<true>(y, direction); // direction * conj(y)
    *c = static_cast<R>(modulus / norm);
    *s = {static_cast<R>(turned.re / norm), static_cast<R>(turned.im / norm)};
    *ca = element<T>(direction * norm * (1 / both));
}

} // namespace

#define ROTG(name, NAME, engine, PARAMS)                                                           \
    LEVEL1(void, name, NAME, engine, PARAMS, ARGS_ROTG, rotg(a, b, c, s))
ROTG(srotg, SROTG, vor_blas_srotg, PARAMS_ROTG(float))
ROTG(drotg, DROTG, vor_blas_drotg, PARAMS_ROTG(double))
ROTG(crotg, CROTG, vor_blas_crotg, PARAMS_CROTG(cfloat, float))
ROTG(zrotg, ZROTG, vor_blas_zrotg, PARAMS_CROTG(cdouble, double))

} // namespace vor::blas
