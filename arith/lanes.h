// Four numbers at a time in the SSE registers: loads and stores at any address, sums of lanes, complex
// numbers two to a register (interleaved) or four with real and imaginary parts in registers of their own.
#pragma once

#include "arith/number.h"

#include <stdint.h>
#include <xmmintrin.h>

namespace vor {
inline namespace arith {

constexpr unsigned kVectorBytes = 16;

inline bool aligned(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % kVectorBytes == 0;
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

// Keeps a loaded value in its register: the compiler would rather load it again for each use, and two
// loads a cycle are what bounds a pass.
inline __m128 held(__m128 x) {
    asm("" : "+x"(x));
    return x;
}

inline __m128 magnitudes(__m128 x) {
    return _mm_andnot_ps(_mm_set1_ps(-0.0f), x);
}

// The processor's estimate of 1 / sqrt(x), good to 12 bits; that of a subnormal x is infinite.
inline float reciprocal_root_estimate(float x) {
    return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(x)));
}

// Sums of the lanes, by the order of the additions, which fixes the bits: (0 + 2) + (1 + 3), and
// (0 + 1) + (2 + 3).
inline float sum_of_halves(__m128 v) {
    const __m128 pair = _mm_add_ps(v, _mm_movehl_ps(v, v));
    return _mm_cvtss_f32(_mm_add_ss(pair, _mm_shuffle_ps(pair, pair, 1)));
}
inline float sum_of_neighbours(__m128 x) {
    float lanes[4];
    _mm_storeu_ps(lanes, x);
    return lanes[0] + lanes[1] + (lanes[2] + lanes[3]);
}

// ---- Two interleaved complex numbers to a register.

// (re, im, re, im) to (im, re, im, re).
inline __m128 swap_parts(__m128 v) {
    return _mm_shuffle_ps(v, v, _MM_SHUFFLE(2, 3, 0, 1));
}

// x y or x conj(y): the real parts of y are spread over both parts of x, then the imaginary parts over the
// exchanged parts of x.
template <bool conjugate>
inline __m128 product_of_two(__m128 x, __m128 y) {
    const __m128 re = _mm_mul_ps(x, _mm_shuffle_ps(y, y, _MM_SHUFFLE(2, 2, 0, 0)));
    const __m128 im = _mm_mul_ps(swap_parts(x), _mm_shuffle_ps(y, y, _MM_SHUFFLE(3, 3, 1, 1)));
    const __m128 sign =
        conjugate ? _mm_setr_ps(0, -0.0f, 0, -0.0f) : _mm_setr_ps(-0.0f, 0, -0.0f, 0);
    return _mm_add_ps(re, _mm_xor_ps(im, sign));
}

// ---- Four complex numbers, or one complex value of four columns.

struct Four {
    __m128 re, im;
};
template <>
struct RealOf<Four> {
    using type = float;
};
inline Four operator*(float factor, Four x) {
    const __m128 f = _mm_set1_ps(factor);
    return {f * x.re, f * x.im};
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

// How a group of four is loaded from p and stored there: in the four-lane form (re re re re im im im im),
// aligned or not, or as four interleaved numbers at any address.
struct Lanes {
    static Four load(const float* p) { return {_mm_load_ps(p), _mm_load_ps(p + 4)}; }
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
struct Interleaved {
    static Four load(const float* p) {
        const __m128 low = _mm_loadu_ps(p), high = _mm_loadu_ps(p + 4);
        return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
    }
    static void store(float* p, Four x) {
        _mm_storeu_ps(p, _mm_unpacklo_ps(x.re, x.im));
        _mm_storeu_ps(p + 4, _mm_unpackhi_ps(x.re, x.im));
    }
};

} // namespace arith
} // namespace vor
