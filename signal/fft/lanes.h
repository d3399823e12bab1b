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

// Keeps a loaded value in its register: the compiler would rather load it again for each use, and two
// loads a cycle are what bounds the passes.
inline __m128 held(__m128 x) {
    asm("" : "+x"(x));
    return x;
}
inline Four held(Four x) {
    return {held(x.re), held(x.im)};
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

// Two interleaved numbers to a register, x y or x conj(y): the real parts of y are spread over both parts
// of x, then the imaginary parts over the exchanged parts of x.
template <bool conjugate>
inline __m128 product_of_two(__m128 x, __m128 y) {
    const __m128 re = _mm_mul_ps(x, _mm_shuffle_ps(y, y, _MM_SHUFFLE(2, 2, 0, 0)));
    const __m128 im = _mm_mul_ps(_mm_shuffle_ps(x, x, _MM_SHUFFLE(2, 3, 0, 1)),
                                 _mm_shuffle_ps(y, y, _MM_SHUFFLE(3, 3, 1, 1)));
    const __m128 sign =
        conjugate ? _mm_setr_ps(0, -0.0f, 0, -0.0f) : _mm_setr_ps(-0.0f, 0, -0.0f, 0);
    return _mm_add_ps(re, _mm_xor_ps(im, sign));
}

// ---- Memory. A position is a pointer to the first of the eight floats of a group of four.

inline Four load_lanes(const float* p) {
    return {_mm_load_ps(p), _mm_load_ps(p + 4)};
}

// How a group is loaded and stored.
struct Lanes { // four-lane form, aligned
    static Four load(const float* p) { return load_lanes(p); }
    static void store(float* p, Four x) {
        _mm_store_ps(p, x.re);
        _mm_store_ps(p + 4, x.im);
    }
};
struct LanesAnywhere {
    static Four load(const float* p) { return {_mm_loadu_ps(p), _mm_loadu_ps(p + 4)}; }
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

// Radix-4 butterfly of four groups in bit-reversed order: group 1 belongs to the sequence of offset 2.
// multiplied(i) gives group i times its twiddle, store(k, X) takes result k. In this order of the
// operations nothing but one value leaves the registers.
template <bool inverse, class Multiplied, class Store>
inline void butterfly(Multiplied multiplied, Store store) {
    const Four c = multiplied(2), d = multiplied(3);
    const Four t = held(c + d), v = held(c - d);
    const Four b = multiplied(1), a = multiplied(0);
    const Four s = a + b, u = a - b;
    store(0, s + t);
    store(2, s - t);
    store(1, plus_turned<inverse>(u, v));
    store(3, minus_turned<inverse>(u, v));
}

} // namespace vor::fft
