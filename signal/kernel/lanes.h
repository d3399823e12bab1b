// Four single-precision complex numbers that do not simply follow one another: where they stand in
// memory. A place offers load(p) and store(p, x); nothing needs alignment.
#pragma once

#include "arith/lanes.h"

namespace vor::signal {

// At p, p + 1, p + 2, p + 3.
struct Neighbours {
    static Four load(const cfloat* p) { return Interleaved::load(&p->re); }
    static void store(cfloat* p, Four a) { Interleaved::store(&p->re, a); }
};

// At p, p - 1, p - 2, p - 3.
struct Falling {
    static Four load(const cfloat* p) {
        const __m128 low = _mm_loadu_ps(&p[-3].re), high = _mm_loadu_ps(&p[-1].re);
        return {_mm_shuffle_ps(high, low, _MM_SHUFFLE(0, 2, 0, 2)),
                _mm_shuffle_ps(high, low, _MM_SHUFFLE(1, 3, 1, 3))};
    }
    static void store(cfloat* p, Four a) {
        const __m128 low = _mm_unpacklo_ps(a.re, a.im), high = _mm_unpackhi_ps(a.re, a.im);
        _mm_storeu_ps(&p[-1].re, _mm_shuffle_ps(low, low, _MM_SHUFFLE(1, 0, 3, 2)));
        _mm_storeu_ps(&p[-3].re, _mm_shuffle_ps(high, high, _MM_SHUFFLE(1, 0, 3, 2)));
    }
};

// The neighbours without p itself: lane 0 is read and not written.
struct NeighboursBut0 {
    static Four load(const cfloat* p) { return Neighbours::load(p); }
    static void store(cfloat* p, Four a) {
        _mm_storeh_pi(reinterpret_cast<__m64*>(p + 1), _mm_unpacklo_ps(a.re, a.im));
        _mm_storeu_ps(&p[2].re, _mm_unpackhi_ps(a.re, a.im));
    }
};

// At p - 1, p - 2, p - 3 in lanes 1 to 3; lane 0 is of no meaning, and p is not touched.
struct FallingBut0 {
    static Four load(const cfloat* p) {
        const Four x = Falling::load(p - 1);
        return {moved(x.re), moved(x.im)};
    }
    static void store(cfloat* p, Four a) {
        const __m128 last = _mm_unpackhi_ps(a.re, a.im);
        _mm_storeh_pi(reinterpret_cast<__m64*>(p - 1), _mm_unpacklo_ps(a.re, a.im));
        _mm_storel_pi(reinterpret_cast<__m64*>(p - 2), last);
        _mm_storeh_pi(reinterpret_cast<__m64*>(p - 3), last);
    }

private:
    static __m128 moved(__m128 x) { return _mm_shuffle_ps(x, x, _MM_SHUFFLE(2, 1, 0, 0)); }
};

} // namespace vor::signal
