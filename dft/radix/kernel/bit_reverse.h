// Bit reversal in place, by the list of a coefficient area.
#pragma once

#include "dft/radix/coefficients.h"
#include "dft/radix/kernel/data.h"
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

// Four-byte numbers go by tiles of four by four: an index is two top bits, middle bits m, two bottom bits. The tile
// of m is turned over its diagonal, with the orders 0, 2, 1, 3, and changes places with that of the reversed m.
struct Tile {
    __m128 row[4];

    Tile(const float* p, int apart) {
        __m128 x[] = {_mm_loadu_ps(p), _mm_loadu_ps(p + 2 * apart), _mm_loadu_ps(p + apart),
                      _mm_loadu_ps(p + 3 * apart)};
        transpose(x[0], x[1], x[2], x[3]);
        row[0] = x[0];
        row[1] = x[2];
        row[2] = x[1];
        row[3] = x[3];
    }
    void store(float* p, int apart) const {
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) _mm_storeu_ps(p + i * apart, row[i]);
    }
};

// n at least 16. All m with the same bits between their two top and two bottom ones are visited together: they
// share their lines, and so do their reverses.
inline void reverse_tiles(float* x, int n) {
    const int bits = trailing_zeros(static_cast<unsigned>(n)) - 4, shared = bits < 4 ? bits : 4;
    const int low = 1 << (shared + 1) / 2, high = 1 << shared / 2, inner = bits - shared;
    const auto reverse = [](int i, int width) {
        return static_cast<int>(fft::reverse_bits(static_cast<unsigned>(i), width));
    };
    const auto visit = [=](int m, bool both_ways) {
        const int r = reverse(m, bits);
        if (both_ways && m > r) return; // its reverse is visited as well
        float *const p = x + 4 * m, *const q = x + 4 * r;
        const Tile tile(p, n / 4);
        if (m != r) Tile(q, n / 4).store(p, n / 4);
        tile.store(q, n / 4);
    };
    for (int i = 0; i < 1 << inner; ++i) {
        const int mirror = reverse(i, inner);
        if (i > mirror) continue;
        for (int b = 0; b < low; ++b)
            for (int t = 0; t < high; ++t) visit((t << inner | i) * low + b, i == mirror);
    }
}
inline bool reverse_long(Split<float> x, int n) {
    reverse_tiles(x.x, n);
    reverse_tiles(x.y, n);
    return true;
}

template <class Form>
void reverse(Form x, int n, const int* list) {
    if (n < 32)
        reverse_short(x, n);
    else if (!reverse_long(x, n))
        reverse_by_list(x, n, list);
}

} // namespace vor::dfti::radix
