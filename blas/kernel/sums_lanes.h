// The 4-wide body of asum and nrm2, and the terms that they sum.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"

namespace vor::blas {

struct Magnitude {
    static extended of(extended x) { return __builtin_fabsl(x); }
    static __m128 of(__m128 x) { return magnitudes(x); }
};

struct Square {
    static extended of(extended x) { return x * x; }
    static __m128 of(__m128 x) { return x * x; }
};

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

} // namespace vor::blas
