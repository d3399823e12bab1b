// Arithmetic on four complex numbers at a time, real parts in one SSE register, imaginary parts in
// another.
#pragma once

#include "serv/element.h"

#include <stdint.h>
#include <xmmintrin.h>

namespace vor::fft {

constexpr unsigned kVectorBytes = 16;

inline bool aligned(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % kVectorBytes == 0;
}

struct Four {
    __m128 re, im;
};

inline Four operator+(Four a, Four b) {
    return {_mm_add_ps(a.re, b.re), _mm_add_ps(a.im, b.im)};
}
inline Four operator-(Four a, Four b) {
    return {_mm_sub_ps(a.re, b.re), _mm_sub_ps(a.im, b.im)};
}

// x w, or x conj(w).
template <bool inverse>
inline Four times(Four x, Four w) {
    const __m128 rr = _mm_mul_ps(x.re, w.re), ii = _mm_mul_ps(x.im, w.im);
    const __m128 ri = _mm_mul_ps(x.re, w.im), ir = _mm_mul_ps(x.im, w.re);
    if constexpr (inverse)
        return {_mm_add_ps(rr, ii), _mm_sub_ps(ir, ri)};
    else
        return {_mm_sub_ps(rr, ii), _mm_add_ps(ri, ir)};
}

// a + r b and a - r b, with r = -i, or i.
template <bool inverse>
inline Four plus_turned(Four a, Four b) {
    if constexpr (inverse)
        return {_mm_sub_ps(a.re, b.im), _mm_add_ps(a.im, b.re)};
    else
        return {_mm_add_ps(a.re, b.im), _mm_sub_ps(a.im, b.re)};
}
template <bool inverse>
inline Four minus_turned(Four a, Four b) {
    return plus_turned<!inverse>(a, b);
}

// Radix-4 butterfly of inputs in bit-reversed order: x[1] belongs to the sequence of offset 2.
template <bool inverse>
inline void butterfly(Four (&x)[4]) {
    const Four s = x[0] + x[1], u = x[0] - x[1], t = x[2] + x[3], v = x[2] - x[3];
    x[0] = s + t;
    x[1] = plus_turned<inverse>(u, v);
    x[2] = s - t;
    x[3] = minus_turned<inverse>(u, v);
}

// ---- Memory. A position is a pointer to the first of the eight floats of a group of four.

inline Four load_lanes(const float* p) {
    return {_mm_load_ps(p), _mm_load_ps(p + 4)};
}
inline Four load_lanes_anywhere(const float* p) {
    return {_mm_loadu_ps(p), _mm_loadu_ps(p + 4)};
}

// How a group is stored.
struct Lanes { // four-lane form, aligned
    static void store(float* p, Four x) {
        _mm_store_ps(p, x.re);
        _mm_store_ps(p + 4, x.im);
    }
};
struct LanesAnywhere {
    static void store(float* p, Four x) {
        _mm_storeu_ps(p, x.re);
        _mm_storeu_ps(p + 4, x.im);
    }
};
struct Interleaved { // at any address
    static void store(float* p, Four x) {
        _mm_storeu_ps(p, _mm_unpacklo_ps(x.re, x.im));
        _mm_storeu_ps(p + 4, _mm_unpackhi_ps(x.re, x.im));
    }
};

// Four complex numbers from four places.
inline Four gather(const float* a, const float* b, const float* c, const float* d) {
    const auto pair = [](const float* low, const float* high) {
        __m128 x = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(low));
        return _mm_loadh_pi(x, reinterpret_cast<const __m64*>(high));
    };
    const __m128 x = pair(a, b), y = pair(c, d);
    return {_mm_shuffle_ps(x, y, _MM_SHUFFLE(2, 0, 2, 0)),
            _mm_shuffle_ps(x, y, _MM_SHUFFLE(3, 1, 3, 1))};
}

// The lanes of x[0] to x[3] become the elements 0 to 3 of each.
inline void transpose(Four (&x)[4]) {
    _MM_TRANSPOSE4_PS(x[0].re, x[1].re, x[2].re, x[3].re);
    _MM_TRANSPOSE4_PS(x[0].im, x[1].im, x[2].im, x[3].im);
}

} // namespace vor::fft
