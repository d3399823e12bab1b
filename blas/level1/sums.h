// Sums of one term for each real entry of a vector: magnitudes (asum) or squares (nrm2). The parts of
// a complex element are two entries.
//
// The number of partial sums and the order in which they are added fix every bit of the result.
#pragma once

#include "blas/kernel/sums_lanes.h"
#include "blas/level1/vector.h"

namespace vor::blas {

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

} // namespace vor::blas
