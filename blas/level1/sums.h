// Sums of one term for each real entry of a vector: magnitudes (asum) or squares (nrm2). The parts of
// a complex element are two entries.
//
// The number of partial sums and the order in which they are added fix every bit of the result.
#pragma once

#include "blas/level1/vector.h"

namespace vor {

struct Magnitude {
    static extended of(extended x) { return __builtin_fabsl(x); }
    static __m128 of(__m128 x) { return _mm_andnot_ps(_mm_set1_ps(-0.0f), x); }
};

struct Square {
    static extended of(extended x) { return x * x; }
    static __m128 of(__m128 x) { return _mm_mul_ps(x, x); }
};

// Any step, two partial sums in extended precision. Real elements take turns; of complex ones the
// real parts go to the first and the imaginary parts to the second sum.
template <class Term, class T>
extended sum_strided(int n, const T* x, int incx) {
    extended a = 0, b = 0;
    x = walk_start(x, n, incx);
    if constexpr (is_complex<T>) {
        in_rounds<2>(
            n, [&] { prefetch(x + 4 * incx); },
            [&] {
                a += Term::of(x->re);
                b += Term::of(x->im);
                x += incx;
            });
        return a + b;
    } else {
        for (; n >= 2; n -= 2, x += 2 * incx) {
            prefetch(x + 4 * incx);
            a += Term::of(x[0]);
            b += Term::of(x[incx]);
        }
        return n > 0 ? (a + b) + Term::of(x[0]) : a + b;
    }
}

template <class Term>
inline extended sum_in_order(int n, extended sum, const float* x) {
    for (; n > 0; --n) sum += Term::of(*x++);
    return sum;
}

// Unit step. The elements in front of the first 16-byte boundary are summed in extended precision and
// rounded to a float, which starts lane 0 of the first of two vector sums; whole rounds of Vectors
// vectors alternate between the two in single precision; what is left is added to their total in
// extended precision. `prefix` elements lie in front of the boundary.
template <class Term, int Vectors>
extended sum_vectors(int n, int prefix, const float* x) {
    __m128 sums[2] = {_mm_set_ss(static_cast<float>(sum_in_order<Term>(prefix, 0, x))),
                      _mm_setzero_ps()};
    n -= prefix, x += prefix;
    for (; n >= 4 * Vectors; n -= 4 * Vectors, x += 4 * Vectors) {
        if constexpr (Vectors > 4) prefetch(x, 64), prefetch(x, 128);
#pragma GCC unroll 6
        for (int k = 0; k < Vectors; ++k)
            sums[k % 2] = _mm_add_ps(sums[k % 2], Term::of(_mm_load_ps(x + 4 * k)));
    }
    return sum_in_order<Term>(n, sum_of_halves(_mm_add_ps(sums[0], sums[1])), x);
}

// The sum over n elements, 0 with n < 1. Unit steps run over the real entries: doubles by `run`,
// floats in vectors, unless they never reach a 16-byte boundary.
template <class Term, int Vectors, class T>
extended sum_elements(int n, const T* x, int incx, bool unit_step,
                      extended (*run)(int entries, const double* x)) {
    using R = real_t<T>;
    const int entries = n * static_cast<int>(sizeof(T) / sizeof(R));
    const auto* first = reinterpret_cast<const R*>(x);
    if (n < 1) return 0;
    if (unit_step) {
        if constexpr (sizeof(R) == sizeof(double))
            return run(entries, first);
        else if (const int prefix = steps_to<16>(first, entries); prefix >= 0)
            return sum_vectors<Term, Vectors>(entries, prefix, first);
    }
    return sum_strided<Term>(n, x, incx);
}

} // namespace vor
