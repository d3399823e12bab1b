// What the vector routines share: where a walk begins, rounds of a loop, distances to a boundary,
// 16-byte access, single steps in extended precision.
#pragma once

#include "serv/element.h"

#include <stdint.h>
#include <xmmintrin.h>

namespace vor {

// 64 significant bits, and an exponent range that holds the product of any two doubles.
using extended = long double;

// A complex number in extended precision.
struct cextended {
    extended re, im;
};
inline extended widen(float x) {
    return x;
}
inline extended widen(double x) {
    return x;
}
inline cextended widen(const cfloat& x) {
    return {x.re, x.im};
}
inline cextended widen(const cdouble& x) {
    return {x.re, x.im};
}

// An element loaded to the x87 stack, where it is exact; a signalling NaN becomes a quiet one. Left to
// itself the compiler takes floats through SSE registers where it only moves them, and copies the other
// factor of a product to multiply it by the memory operand, which costs the stack unit a cycle.
inline extended push(const float& x) {
    extended value;
    asm("flds %1" : "=t"(value) : "m"(x));
    return value;
}
inline extended push(const double& x) {
    extended value;
    asm("fldl %1" : "=t"(value) : "m"(x));
    return value;
}

// sum += x*y in the precision of the sum. The extended ones need one place on the x87 stack beside the
// sums: the compiler would keep operands there, and store sums to make room.
inline void accumulate(float& sum, float x, float y) {
    sum += x * y;
}
inline void accumulate(extended& sum, const float& x, const float& y) {
    asm("flds %1\n\tfmuls %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}
inline void accumulate(extended& sum, const double& x, const double& y) {
    asm("fldl %1\n\tfmull %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}

// What the routines calculate in that do not say otherwise: single precision for float, extended for
// double.
template <class R>
using arithmetic = std::conditional_t<std::is_same_v<R, float>, float, extended>;

// First element of a walk over n elements: with a negative step it begins at the far end.
template <class T>
inline T* walk_start(T* x, int n, int inc) {
    return inc < 0 ? x + (1 - n) * inc : x;
}

// Two walks that run backwards together meet the same pairs as the same walks turned round. Turns
// both if a unit step points backwards, so that the unit-step vector is read forwards.
inline void turn_unit_step_forward(int& incx, int& incy) {
    if (incx != -1 && (incy != -1 || incx == 1)) return;
    incx = -incx;
    incy = -incy;
}

// Runs step() n times, Group times in a round, and ahead() at the start of each full round.
template <int Group, class Ahead, class Step>
[[gnu::always_inline]] inline void in_rounds(int n, Ahead ahead, Step step) {
    for (; n >= Group; n -= Group) {
        ahead();
#pragma GCC unroll 8
        for (int i = 0; i < Group; ++i) step();
    }
    for (; n > 0; --n) step();
}

// Non-faulting hint that the line at p is wanted soon, at most `bytes` behind p.
template <class T>
inline void prefetch(const T* p, int bytes = 0) {
    _mm_prefetch(reinterpret_cast<const char*>(p) + bytes, _MM_HINT_T0);
}
template <class T>
inline void prefetch_once(const T* p, int bytes = 0) { // data that will not be used again
    _mm_prefetch(reinterpret_cast<const char*>(p) + bytes, _MM_HINT_NTA);
}

// Steps of whole elements from p to the next multiple of Boundary bytes, but not more than n;
// -1 if such steps never get there.
template <int Boundary, class T>
inline int steps_to(const T* p, int n) {
    const unsigned gap = -reinterpret_cast<uintptr_t>(p) % Boundary;
    if (gap % sizeof(T) != 0) return -1;
    const int steps = static_cast<int>(gap / sizeof(T));
    return steps < n ? steps : n;
}

inline bool is_aligned16(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % 16 == 0;
}

// Four floats from or to p, which is a multiple of 16 if Aligned.
template <bool Aligned>
inline __m128 load(const float* p) {
    return Aligned ? _mm_load_ps(p) : _mm_loadu_ps(p);
}
template <bool Aligned>
inline void store(float* p, __m128 v) {
    if constexpr (Aligned)
        _mm_store_ps(p, v);
    else
        _mm_storeu_ps(p, v);
}

// (re, im, re, im) to (im, re, im, re).
inline __m128 swap_parts(__m128 v) {
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 3, 0, 1));
}

// Sum of the lanes: high pair onto low pair, then lane 1 onto lane 0.
inline float sum_of_lanes(__m128 v) {
    const __m128 pair = _mm_add_ps(v, _mm_movehl_ps(v, v));
    return _mm_cvtss_f32(_mm_add_ss(pair, _mm_shuffle_ps(pair, pair, 1)));
}

// One pair under the plane rotation (c, s).
template <class W, class T>
inline void rotate(W c, W s, T& x, T& y) {
    if constexpr (is_complex<T>) {
        rotate(c, s, x.re, y.re);
        rotate(c, s, x.im, y.im);
    } else {
        const W x0 = x, y0 = y;
        x = static_cast<T>(c * x0 + s * y0);
        y = static_cast<T>(c * y0 - s * x0);
    }
}

// y := alpha*x + y in extended precision, rounded once at the store.
template <class T>
inline void add_product(extended alpha, const T& x, T& y) {
    y = static_cast<T>(alpha * x + y);
}
template <class T>
inline void add_product(const cextended& alpha, const T& x, T& y) {
    const extended xr = x.re, xi = x.im;
    y.re = static_cast<real_t<T>>(y.re + alpha.re * xr - alpha.im * xi);
    y.im = static_cast<real_t<T>>(y.im + alpha.re * xi + alpha.im * xr);
}

// The four real sums of an inner product of complex vectors, kept apart until the end.
template <class W>
struct ProductSums {
    W rr = 0, ii = 0, ri = 0, ir = 0; // of x.re*y.re, x.im*y.im, x.re*y.im, x.im*y.re

    template <class T>
    void add(const T& x, const T& y) {
        accumulate(rr, x.re, y.re);
        accumulate(ii, x.im, y.im);
        accumulate(ri, x.re, y.im);
        accumulate(ir, x.im, y.re);
    }
    // The sum of x*y or, with Conjugate, of conj(x)*y.
    template <bool Conjugate, class T>
    T value() const {
        using R = real_t<T>;
        if constexpr (Conjugate) return {static_cast<R>(rr + ii), static_cast<R>(ri - ir)};
        return {static_cast<R>(rr - ii), static_cast<R>(ri + ir)};
    }
};

} // namespace vor
