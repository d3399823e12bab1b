// Bit reversal in place, by the list of a coefficient area.
#pragma once

#include "dft/radix/coefficients.h"
#include "dft/radix/data.h"
#include "serv/bits.h"
#include "signal/fft/kernels.h"
#include "signal/fft/tables.h"

#include <initializer_list>

namespace vor::dfti::radix {

template <class Form>
inline void exchange(Form x, int i, int j) {
    const auto a = x.get(i), b = x.get(j);
    x.set(i, b);
    x.set(j, a);
}

// Interleaved numbers are moved as bits.
inline void exchange(Pairs<float> x, int i, int j) {
    __m64 *p = reinterpret_cast<__m64*>(x.x + i), *q = reinterpret_cast<__m64*>(x.x + j);
    const __m128 a = _mm_loadl_pi(_mm_setzero_ps(), p), b = _mm_loadl_pi(_mm_setzero_ps(), q);
    _mm_storel_pi(q, a);
    _mm_storel_pi(p, b);
}
inline void exchange(Pairs<double> x, int i, int j) {
    float *p = reinterpret_cast<float*>(x.x + i), *q = reinterpret_cast<float*>(x.x + j);
    const __m128 a = _mm_loadu_ps(p), b = _mm_loadu_ps(q);
    _mm_storeu_ps(q, a);
    _mm_storeu_ps(p, b);
}

// The list gives the reverse r of 4i for each i below n/16; what the two low and the two high bits of an index
// do is written out here. Its other sections name what is exchanged only if i is below its reverse, and the
// pairs of the last quarter.
template <class Form>
void reverse_by_list(Form x, int n, const int* list) {
    const int quarter = n / 4, half = n / 2;
    const int rounds = list[1];
    const int* reverses = list + 2;
    const int* some = list + rounds + n / 8 + 2;
    const int* const some_end = some + 2 + some[1];
    some += 2;
    for (int i = 0; i < rounds; ++i) {
        const int a = 4 * i, r = reverses[i];
        if (some != some_end && *some == i) {
            ++some;
            exchange(x, a, r);
            exchange(x, quarter + a + 2, quarter + r + 2);
            exchange(x, half + a + 1, half + r + 1);
        }
        exchange(x, a + 1, half + r);
        exchange(x, a + 2, quarter + r);
        exchange(x, a + 3, half + quarter + r);
        exchange(x, quarter + a + 1, half + r + 2);
        exchange(x, quarter + a + 3, half + quarter + r + 2);
        exchange(x, half + a + 3, half + quarter + r + 1);
    }
    const int* pair = some_end + 2;
    for (int left = some_end[1]; left > 0; --left, pair += 2) exchange(x, pair[0], pair[1]);
}

// Of fewer than 32 points, which have no list.
template <class Form>
void reverse_short(Form x, int n) {
    const int bits = trailing_zeros(static_cast<unsigned>(n));
    for (int i = 1; i < n; ++i) {
        const int r = static_cast<int>(fft::reverse_bits(static_cast<unsigned>(i), bits));
        if (i < r) exchange(x, i, r);
    }
}

// What does not fit the first-level cache goes by tiles, which need no list.
inline constexpr unsigned kListBytes = 32768;
inline bool reverse_long(Pairs<float> x, int n) {
    if (n * sizeof(cfloat) <= kListBytes) return false;
    tavs_BitRev1_C(x.x, n, nullptr);
    return true;
}
inline bool reverse_long(Pairs<double> x, int n) {
    if (n * sizeof(cdouble) <= kListBytes) return false;
    tavs_BitRev1_Z(x.x, n, nullptr);
    return true;
}
inline bool reverse_long(Split<double> x, int n) {
    if (n * sizeof(double) <= kListBytes) return false;
    for (double* part : {x.x, x.y}) tavs_BitRev1_C(reinterpret_cast<cfloat*>(part), n, nullptr);
    return true;
}
inline bool reverse_long(Split<float>, int) {
    return false;
}

template <class Form>
void reverse(Form x, int n, const int* list) {
    if (n < 32)
        reverse_short(x, n);
    else if (!reverse_long(x, n))
        reverse_by_list(x, n, list);
}

} // namespace vor::dfti::radix
